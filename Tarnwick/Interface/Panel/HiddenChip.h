#pragma once

#include "Tarnwick/Interface/Controls/ControlButton.h"
#include "Tarnwick/Model/HiddenCounts.h"

namespace Tarnwick {

/// The footer's button that says how many pull requests are hidden, and shows or hides them again.
/// It is out of sight while nothing is hidden. A click leaves the keyboard where it is.
class HiddenChip final : public ControlButton {
    Q_OBJECT

public:
    HiddenChip(const Appearance& appearance, QWidget* parent);

    /// `areShown` says whether the hidden ones stand in the list at the moment.
    void setHidden(const HiddenCounts& hidden, bool areShown);

    QSize visibleSize() const override;

protected:
    void paintVisible(QPainter& painter, const QRectF& visible) override;

    double radius() const override { return 6; }
};

}  // namespace Tarnwick
