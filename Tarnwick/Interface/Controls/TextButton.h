#pragma once

#include "Tarnwick/Interface/Controls/ControlButton.h"

namespace Tarnwick {

/// A button that is nothing but its words, in the colour of links.
class TextButton final : public ControlButton {
    Q_OBJECT

public:
    TextButton(const QString& text, const Appearance& appearance, QWidget* parent);

    QSize visibleSize() const override;

protected:
    void paintVisible(QPainter& painter, const QRectF& visible) override;

    double radius() const override { return 4; }
};

}  // namespace Tarnwick
