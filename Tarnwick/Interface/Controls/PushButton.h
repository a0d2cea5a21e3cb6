#pragma once

#include "Tarnwick/Interface/Controls/Fade.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QFocusFrame>
#include <QPointer>
#include <QPushButton>

namespace Tarnwick {

/// A button with a text, or with a symbol in place of one. It fades under the pointer, takes Return
/// beside Space, and has a ring around it for those who use the keyboard.
class PushButton : public QPushButton {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PushButton)

public:
    enum class Kind {
        plain,
        primary,
        link,   ///< Nothing but its words, in the color of links.
        chip,   ///< Words on a quiet fill.
        quiet,  ///< A symbol, with a fill under the pointer and while it is held open.
    };
    enum class Size {
        regular,
        small,
    };

    PushButton(const QString& text, Kind kind, QWidget* parent, Size size = Size::regular);
    ~PushButton() override;

    /// Shows a system symbol; the text is for those who cannot see it.
    void setSymbol(const QString& symbol);

    /// A button that opens and shuts tells screen readers which of both it is.
    void setToggle(bool isToggle) { _isToggle = isToggle; }

    bool isToggle() const { return _isToggle; }

    bool isOpen() const { return _isOpen; }

    /// While what the button opened is in sight it stays filled.
    void setOpen(bool isOpen);

    QSize sizeHint() const override;

protected:
    /// Draws all but the ring. The base draws what the kind asks for.
    virtual void paintFace(QPainter& painter);

    /// Under the pointer, while it is pressed and while it is open.
    void paintQuietFill(QPainter& painter);

    /// From 0 to 1.
    double filled() const { return _isOpen || isDown() ? 1 : _hover.value(); }

    double radius() const;

    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool isSmall() const { return _size == Size::small; }

    LineStyle style() const;
    int padding() const;
    void paintFrame(QPainter& painter);
    QColor textColor() const;

    Kind _kind;
    Size _size;
    QString _symbol;
    Fade _hover;
    QPointer<QFocusFrame> _ring;  ///< While it has the focus by key.
    bool _isOpen = false;
    bool _isToggle = false;
};

}  // namespace Tarnwick
