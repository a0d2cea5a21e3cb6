#pragma once

#include "Tarnwick/Interface/Controls/OverlayScrollBar.h"
#include "Tarnwick/Interface/List/ListKeys.h"
#include "Tarnwick/Interface/List/RowDelegate.h"
#include "Tarnwick/Interface/List/RowHover.h"
#include "Tarnwick/Interface/List/RowMenu.h"
#include "Tarnwick/Interface/List/ScrollAnchor.h"

#include <QBasicTimer>
#include <QListView>
#include <QMenu>
#include <QPointer>

#include <optional>

namespace Tarnwick {

/// The list of pull requests. It shows the model's rows, follows keys and pointer and says what the
/// user wants done with a row; it does none of it but copying. Main thread only.
class PullRequestListView final : public QListView {
    Q_OBJECT

public:
    /// Requires: `model` lives longer than the view.
    PullRequestListView(PullRequestListModel& model, QWidget* parent = nullptr);

    const RowDelegate& rows() const { return *_delegate; }

    /// How a row is painted now.
    RowSituation situation(int row) const;

    /// The help text for a point of the viewport; empty where there is no row.
    QString helpTextAt(const QPoint& position) const;

    /// The user's login, or empty when it is not known.
    void setAccount(const std::string& account) { _account = account; }

    /// Whether the menu of a row is up.
    bool isMenuOpen() const { return _menu != nullptr && _menu->isVisible(); }

    /// Opens the row that is filled while something is found. Does nothing where there is no hit.
    void openHit();

    /// The row, or the heading, that is seen at a point of the viewport.
    QModelIndex indexInSight(const QPoint& position) const;

    /// How much of what is in sight a heading may cover that stays at the top; 0 without headings.
    int coveredHeight() const;

    /// A row that is scrolled to stands clear of the heading above it.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    /// The next list leaves the rows that are in sight at their heights, also in a list at its top.
    void holdRows() { _holdsTop = true; }

    void doItemsLayout() override;

Q_SIGNALS:
    /// By key, pointer or the row's menu.
    void actionRequested(RowAction action, const PullRequestKit::PullRequest& pullRequest);
    void findRequested();

protected:
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void applyAppearance();
    void takeInList();
    void noteMove(int row);
    void startTaking();
    void leaveHeading();
    void followFinding();
    int selectedRow() const;
    /// The selected row, or the first hit, which Return in the find field opens; -1 for none.
    int filledRow() const;
    int rowAt(const QPoint& position) const;
    int firstRowInSight() const;
    std::optional<StuckHeading> stuck() const;
    void paintStuckHeading(QPainter& painter) const;
    RowPart partAt(int row, const QPoint& position) const;
    void select(int row);
    void move(ListCommand command);
    void act(ListCommand command, int row);
    void followPointer(const QPoint& position);
    void showHelp(const QPoint& position, const QPoint& globalPosition);
    void showMenu(int row, const QPoint& globalPosition);
    bool isFilled(int row) const;

    PullRequestListModel& _model;
    RowDelegate* _delegate;
    OverlayScrollBar _scrollBar;
    RowHover _hover;
    bool _isOnEditorButton = false;
    QPersistentModelIndex _pressed;
    bool _isEditorPressed = false;
    /// Whether the selected row has a focus ring: not before the keyboard is used.
    bool _usesKeyboard = false;
    std::optional<ScrollAnchor> _anchor;
    bool _holdsTop = false;
    QStringList _words;  ///< What was to be found before the list changed.
    std::optional<PullRequestKit::PullRequestID> _selected;  ///< Likewise.
    std::optional<PullRequestKit::PullRequestID> _selectedBeforeFinding;
    std::string _account;
    QPointer<QMenu> _menu;
    QBasicTimer _ageTimer;  ///< Runs while the list is in sight.
};

}  // namespace Tarnwick
