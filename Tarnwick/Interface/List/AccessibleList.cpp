#include "Tarnwick/Interface/List/AccessibleList.h"

#include "Tarnwick/Interface/List/PullRequestListModel.h"
#include "Tarnwick/Interface/List/PullRequestListView.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>

namespace Tarnwick {
namespace {

/// Follows its row when rows move.
class AccessibleRow final : public QAccessibleInterface {
public:
    AccessibleRow(PullRequestListView* view, const QModelIndex& index)
        : _view(view)
        , _index(index)
    {}

    const QPersistentModelIndex& index() const { return _index; }

    bool isValid() const override { return _view != nullptr && _index.isValid(); }

    QObject* object() const override { return nullptr; }

    QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(_view);
    }

    int childCount() const override { return 0; }

    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }

    QAccessible::Role role() const override
    {
        return isHeading() ? QAccessible::Heading : QAccessible::ListItem;
    }

    QString text(QAccessible::Text kind) const override
    {
        if (!isValid()) {
            return {};
        }
        if (kind == QAccessible::Name) {
            return _index.data(Qt::AccessibleTextRole).toString();
        }
        return kind == QAccessible::Description
                   ? _index.data(Qt::AccessibleDescriptionRole).toString()
                   : QString();
    }

    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QRect rect() const override
    {
        if (!isValid()) {
            return {};
        }
        const QRect place = _view->visualRect(_index);
        return {_view->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const QRect place = _view->visualRect(_index);
        state.invisible = !_view->isVisible();
        state.offscreen = !place.intersects(_view->viewport()->rect());
        if (!isHeading()) {
            state.selectable = true;
            state.focusable = true;
            state.selected = _view->selectionModel()->isSelected(_index);
            state.focused = _view->hasFocus() && _view->currentIndex() == _index;
        }
        return state;
    }

private:
    bool isHeading() const { return isValid() && !_index.flags().testFlag(Qt::ItemIsSelectable); }

    QPointer<PullRequestListView> _view;
    QPersistentModelIndex _index;
};

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
#define TARNWICK_HAS_ACCESSIBLE_SELECTION
#endif

class AccessibleList final
    : public QAccessibleWidget
#ifdef TARNWICK_HAS_ACCESSIBLE_SELECTION
    , public QAccessibleSelectionInterface
#endif
{
public:
    explicit AccessibleList(PullRequestListView* view)
        : QAccessibleWidget(view, QAccessible::List)
        , _view(view)
    {}

    AccessibleList(const AccessibleList&) = delete;
    AccessibleList& operator=(const AccessibleList&) = delete;

    ~AccessibleList() override
    {
        QObject::disconnect(_rowsGone);
        for (const QAccessible::Id id : std::as_const(_rows)) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    /// May be called before the list has its model.
    int childCount() const override
    {
        return _view->model() == nullptr ? 0 : _view->model()->rowCount();
    }

    QAccessibleInterface* child(int index) const override
    {
        return index < childCount() ? rowOf(_view->model()->index(index, 0)) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* const row = dynamic_cast<const AccessibleRow*>(child);
        return row == nullptr ? -1 : row->index().row();
    }

    QAccessibleInterface* childAt(int x, int y) const override
    {
        return rowOf(_view->indexAt(_view->viewport()->mapFromGlobal(QPoint(x, y))));
    }

    QAccessibleInterface* focusChild() const override
    {
        return _view->hasFocus() ? rowOf(_view->currentIndex()) : nullptr;
    }

#ifdef TARNWICK_HAS_ACCESSIBLE_SELECTION
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::SelectionInterface
                   ? static_cast<QAccessibleSelectionInterface*>(this)
                   : QAccessibleWidget::interface_cast(type);
    }

    int selectedItemCount() const override { return static_cast<int>(selectedItems().size()); }

    QList<QAccessibleInterface*> selectedItems() const override
    {
        QList<QAccessibleInterface*> items;
        for (const QModelIndex& index : _view->selectionModel()->selectedIndexes()) {
            items.append(rowOf(index));
        }
        return items;
    }

    bool select(QAccessibleInterface* childItem) override
    {
        const auto* const row = dynamic_cast<const AccessibleRow*>(childItem);
        if (row == nullptr || !row->state().selectable) {
            return false;
        }
        _view->selectionModel()->setCurrentIndex(row->index(), QItemSelectionModel::ClearAndSelect);
        return true;
    }

    bool unselect(QAccessibleInterface* childItem) override
    {
        const auto* const row = dynamic_cast<const AccessibleRow*>(childItem);
        return row != nullptr && row->state().selected && clear();
    }

    /// At most one row is selected.
    bool selectAll() override { return false; }

    bool clear() override
    {
        _view->selectionModel()->clear();
        return true;
    }
#endif

private:
    QAccessibleInterface* rowOf(const QModelIndex& index) const
    {
        if (!index.isValid()) {
            return nullptr;
        }
        const auto known = _rows.constFind(index);
        if (known != _rows.constEnd()) {
            return QAccessible::accessibleInterface(*known);
        }
        if (!_rowsGone) {
            _rowsGone =
                QObject::connect(index.model(), &QAbstractItemModel::rowsRemoved, _view, [this] {
                    forgetRowsGone();
                });
        }
        auto* const row = new AccessibleRow(_view, index);
        _rows.insert(index, QAccessible::registerAccessibleInterface(row));
        return row;
    }

    void forgetRowsGone() const
    {
        for (auto row = _rows.begin(); row != _rows.end();) {
            if (row.key().isValid()) {
                ++row;
            } else {
                QAccessible::deleteAccessibleInterface(row.value());
                row = _rows.erase(row);
            }
        }
    }

    PullRequestListView* _view;
    mutable QHash<QPersistentModelIndex, QAccessible::Id> _rows;
    mutable QMetaObject::Connection _rowsGone;
};

}  // namespace

QAccessibleInterface* makeAccessibleList(PullRequestListView* view)
{
    return new AccessibleList(view);
}

}  // namespace Tarnwick
