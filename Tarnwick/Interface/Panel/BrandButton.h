#pragma once

#include "Tarnwick/Interface/Controls/PushButton.h"

namespace Tarnwick {

/// The program's logo and name, which link to its web site.
class BrandButton final : public PushButton {
    Q_OBJECT

public:
    explicit BrandButton(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintFace(QPainter& painter) override;
};

}  // namespace Tarnwick
