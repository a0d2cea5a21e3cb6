#pragma once

#include "Tarnwick/Interface/Controls/Indicator.h"

namespace Tarnwick {

/// A thin indeterminate progress bar. Without motion it is full and pale.
class ProgressBar final : public Indicator {
public:
    explicit ProgressBar(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace Tarnwick
