#pragma once

#include <QPersistentModelIndex>
#include <QVariantAnimation>

class QWidget;

namespace Tarnwick {

/// Which row is under the pointer, and how far its fill has come and the fill of the row before has
/// gone. Without motion both are immediate. Main thread only.
class RowHover {
public:
    /// Repaints `widget` while a fill changes.
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
    double _beforeFill = 0;  ///< Of the row before, when the pointer left it.
    QVariantAnimation _animation;
    double _progress = 1;
};

}  // namespace Tarnwick
