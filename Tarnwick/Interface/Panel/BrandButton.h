#pragma once

#include "Tarnwick/Interface/Controls/ControlButton.h"

namespace Tarnwick {

/// The program's mark and name, which lead to its web site.
class BrandButton final : public ControlButton {
    Q_OBJECT

public:
    BrandButton(const Appearance& appearance, QWidget* parent);

    QSize visibleSize() const override;

protected:
    void paintVisible(QPainter& painter, const QRectF& visible) override;

    double radius() const override { return 8; }

private:
    LineStyle style() const;
};

}  // namespace Tarnwick
