#pragma once

#include "Tarnwick/Interface/Controls/Indicator.h"

namespace Tarnwick {

/// A thin bar of unknown length to go: a third of it sweeps along; full and pale where the desktop
/// wants no motion.
class ProgressBar final : public Indicator {
public:
    explicit ProgressBar(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace Tarnwick
