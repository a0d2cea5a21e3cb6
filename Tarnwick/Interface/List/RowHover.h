#pragma once

#include <QPersistentModelIndex>
#include <QVariantAnimation>

class QWidget;

namespace Tarnwick {

/// The row under the pointer, with a fill that fades in on it and out on the previous one if the
/// desktop wants motion. Main thread only.
class RowHover {
public:
    /// Repaints `widget` during the animation.
    explicit RowHover(QWidget& widget);

    /// An invalid index for none.
    void setRow(const QModelIndex& index);

    const QPersistentModelIndex& row() const { return _current; }

    /// From 0 to 1.
    double fill(const QModelIndex& index) const;

private:
    QWidget& _widget;
    QPersistentModelIndex _current;
    QPersistentModelIndex _before;
    double _beforeFill = 0;  ///< The previous row's fill when the pointer left it.
    QVariantAnimation _animation;
    double _progress = 1;
};

}  // namespace Tarnwick
