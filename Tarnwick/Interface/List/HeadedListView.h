#pragma once

#include "Tarnwick/Interface/Controls/OverlayScrollBar.h"
#include "Tarnwick/Interface/List/ListKeys.h"
#include "Tarnwick/Interface/List/RowHover.h"
#include "Tarnwick/Interface/List/RowListModel.h"

#include <QListView>
#include <QPersistentModelIndex>

#include <optional>
#include <vector>

namespace Tarnwick {

/// What the program's lists share. Rows stand under headings, of which the one that belongs to the
/// first row in sight stays at the top until the next pushes it out; the rows in sight stay where
/// they are when others come and go, but for a list at its top. One row is selected, with a focus
/// ring from the first key on. A row may have one button. Main thread only.
class HeadedListView : public QListView {
    Q_OBJECT

public:
    explicit HeadedListView(QWidget* parent);

    /// The row's place in the viewport. That of a heading that stays at the top is there.
    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& position) const override;

    /// A row that is scrolled to stands clear of the heading above it.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    virtual int rowHeight(int row) const = 0;
    virtual void paintRow(QPainter& painter, int row, const QRect& place) const = 0;

    /// The help text for a point of the viewport; empty where there is no row.
    QString helpTextAt(const QPoint& position) const;

protected:
    /// To be called once, when the rest of the view is made. Requires: `model` lives longer than
    /// the view.
    void begin(RowListModel& model);

    virtual int headingHeight() const = 0;

    /// `position` is relative to the row's upper left corner.
    virtual bool isOnButton(int row, const QPoint& position) const = 0;
    virtual QString helpText(int row, const QPoint& position) const = 0;
    /// Where the help text holds, likewise.
    virtual QRect helpPlace(int row, const QPoint& position) const = 0;

    /// A press and release on the row, on its button or beside it.
    virtual void clicked(int row, bool onButton, const QMouseEvent& event) = 0;

    virtual bool takes(Qt::MouseButton button) const { return button == Qt::LeftButton; }

    virtual Qt::CursorShape cursorOver(bool onButton) const = 0;

    /// When the view begins, and with another appearance.
    virtual void applyAppearance();

    /// The row that Tab leads to when none is selected.
    virtual int rowToBegin() const { return firstRowInSight(); }

    /// The next list leaves the rows that are in sight at their heights, also in a list at its top.
    void holdTop() { _holdsTop = true; }

    void move(ListCommand command);
    void select(int row);
    /// -1 for none.
    int selectedRow() const;
    const std::vector<int>& headingRows() const;
    int rowAt(const QPoint& position) const;
    int firstRowInSight() const;
    QPoint inRow(int row, const QPoint& position) const;

    QModelIndex indexOf(int row) const { return model()->index(row, 0); }

    bool isStop(int row) const;

    const RowHover& hover() const { return _hover; }

    bool isHovered(int row) const;

    bool isButtonHovered(int row) const { return isHovered(row) && _isOnButton; }

    bool hasRing(int row) const { return row == selectedRow() && _usesKeyboard && hasFocus(); }

    OverlayScrollBar& scrollBar() { return _scrollBar; }

    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void hideEvent(QHideEvent* event) override;

protected Q_SLOTS:
    virtual void startTaking();
    virtual void takeInList();

private:
    /// A row in sight and how far it goes among the others in a new list.
    struct Place {
        QPersistentModelIndex index;
        int top = 0;
        int distance = 0;
    };

    using Places = std::vector<Place>;

    struct StuckHeading {
        int row = 0;
        int top = 0;  ///< 0, or above it when pushed out.
    };

    std::optional<StuckHeading> stuck() const;

    int topOf(int row) const { return QListView::visualRect(indexOf(row)).top(); }

    int coveredHeight() const { return headingRows().empty() ? 0 : headingHeight(); }

    Places placesInSight() const;
    void restore(const Places& places);
    void measureDistances(const std::vector<int>& newRows);
    void followPointer(const QPoint& position);
    void showHelp(const QPoint& position, const QPoint& globalPosition);

    const RowListModel* _rows = nullptr;  ///< From when the view begins.
    OverlayScrollBar _scrollBar;
    RowHover _hover;
    bool _isOnButton = false;
    QPersistentModelIndex _pressed;
    bool _isButtonPressed = false;
    /// Whether the selected row has a focus ring: not before the keyboard is used.
    bool _usesKeyboard = false;
    bool _holdsTop = false;
    Places _anchor;  ///< While a new list is taken in.
};

}  // namespace Tarnwick
