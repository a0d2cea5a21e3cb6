#pragma once

#include "Tarnwick/Interface/Controls/Fade.h"
#include "Tarnwick/Interface/Look/Appearance.h"

#include <QAbstractButton>

namespace Tarnwick {

/// What the program's buttons have in common: the fade under the pointer, a focus ring for those
/// who use the keyboard, Return beside Space, and room around what is seen for the ring.
class ControlButton : public QAbstractButton {
    Q_OBJECT

public:
    ControlButton(const Appearance& appearance, QWidget* parent);

    /// The size of what is seen, in logical pixels; the widget is larger by the ring's room.
    virtual QSize visibleSize() const = 0;

    /// Puts what is seen at this rectangle of the parent.
    void place(const QRect& visible);

    /// What is seen, in the widget's own coordinates.
    QRect visibleRect() const;

    QSize sizeHint() const override;

protected:
    virtual void paintVisible(QPainter& painter, const QRectF& visible) = 0;

    const Appearance& appearance() const { return _appearance; }

    /// From 0 to 1, as the pointer is over the button.
    double hover() const { return _hover.value(); }

    /// The corner radius of what is seen, which the ring follows.
    virtual double radius() const = 0;

    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    const Appearance& _appearance;
    Fade _hover;
    bool _showsRing = false;
};

}  // namespace Tarnwick
