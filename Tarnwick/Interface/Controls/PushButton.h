#pragma once

#include "Tarnwick/Interface/Controls/Fade.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QFocusFrame>
#include <QPointer>
#include <QPushButton>

namespace Tarnwick {

/// A button with a text or a symbol. It fades under the pointer, responds to Return as to Space,
/// and has a focus ring for keyboard users.
class PushButton : public QPushButton {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PushButton)

public:
    enum class Kind {
        plain,
        primary,
        link,   ///< Text in the color of links.
        chip,   ///< Text on a subtle fill.
        quiet,  ///< A symbol, filled under the pointer and while open.
    };
    enum class Size {
        regular,
        small,
    };

    PushButton(const QString& text, Kind kind, QWidget* parent, Size size = Size::regular);
    ~PushButton() override;

    /// Shows a system symbol. The text becomes the accessible name.
    void setSymbol(const QString& symbol);

    /// Screen readers report whether a toggle is open.
    void setToggle(bool isToggle) { _isToggle = isToggle; }

    bool isToggle() const { return _isToggle; }

    bool isOpen() const { return _isOpen; }

    /// The button stays filled while what it opened is visible.
    void setOpen(bool isOpen);

    QSize sizeHint() const override;

protected:
    /// Draws everything but the focus ring, depending on the kind.
    virtual void paintFace(QPainter& painter);

    void paintQuietFill(QPainter& painter);

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
