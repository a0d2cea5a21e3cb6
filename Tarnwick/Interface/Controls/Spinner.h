#pragma once

#include "Tarnwick/Interface/Controls/Indicator.h"

namespace Tarnwick {

/// A turning ring. Without motion it is a half ring.
class Spinner final : public Indicator {
public:
    /// `size` is the diameter at text scale 1.
    Spinner(int size, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int _size;
};

}  // namespace Tarnwick
