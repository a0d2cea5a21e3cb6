#pragma once

#include "Tarnwick/Interface/Controls/ControlButton.h"

namespace Tarnwick {

/// A symbol that can be pressed, with a quiet fill under the pointer and while it is held open.
class IconButton final : public ControlButton {
    Q_OBJECT

public:
    /// The sizes of the symbol and of the square around it at text scale 1.
    struct Extent {
        int icon = 20;
        int box = 32;
        double radius = 8;
    };

    IconButton(
        const QString& symbol,
        const QString& accessibleName,
        Extent extent,
        const Appearance& appearance,
        QWidget* parent);

    /// A button that opens and shuts tells screen readers which of both it is.
    void setToggle(bool isToggle) { _isToggle = isToggle; }

    bool isToggle() const { return _isToggle; }

    bool isOpen() const { return _isOpen; }

    /// While what the button opened is in sight it stays filled.
    void setOpen(bool isOpen);

    QSize visibleSize() const override;

protected:
    void paintVisible(QPainter& painter, const QRectF& visible) override;

    double radius() const override { return _extent.radius; }

private:
    QString _symbol;
    Extent _extent;
    bool _isOpen = false;
    bool _isToggle = false;
};

}  // namespace Tarnwick
