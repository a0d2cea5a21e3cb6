#pragma once

#include "Tarnwick/Interface/List/HeadedListView.h"
#include "Tarnwick/Interface/List/RowDelegate.h"
#include "Tarnwick/Interface/List/RowMenu.h"

#include <QBasicTimer>
#include <QMenu>
#include <QPointer>

#include <optional>

namespace Tarnwick {

/// The list of pull requests. It shows the model's rows, follows keys and pointer and says what the
/// user wants done with a row; it does none of it but copying. Main thread only.
class PullRequestListView final : public HeadedListView {
    Q_OBJECT

public:
    /// Requires: `model` lives longer than the view.
    explicit PullRequestListView(PullRequestListModel& model, QWidget* parent = nullptr);

    const RowDelegate& rows() const { return _rows; }

    /// How a row is painted now.
    RowState situation(int row) const;

    /// The user's login, or empty when it is not known.
    void setAccount(const std::string& account) { _account = account; }

    /// Whether the menu of a row is up.
    bool isMenuOpen() const { return _menu != nullptr && _menu->isVisible(); }

    /// Opens the row that is filled while something is found. Does nothing where there is no hit.
    void openHit();

    /// The next list leaves the rows that are in sight at their heights, also in a list at its top.
    void holdRows() { holdTop(); }

    void doItemsLayout() override;
    int rowHeight(int row) const override;
    void paintRow(QPainter& painter, int row, const QRect& place) const override;

Q_SIGNALS:
    /// By key, pointer or the row's menu.
    void actionRequested(RowAction action, const PullRequestKit::PullRequest& pullRequest);
    void findRequested();

protected:
    int headingHeight() const override { return _rows.metrics().heading; }

    bool isOnButton(int row, const QPoint& position) const override;
    QString helpText(int row, const QPoint& position) const override;
    QRect helpPlace(int row, const QPoint& position) const override;
    void clicked(int row, bool onButton, const QMouseEvent& event) override;
    bool takes(Qt::MouseButton button) const override;

    Qt::CursorShape cursorOver(bool /*onButton*/) const override { return Qt::PointingHandCursor; }

    int rowToBegin() const override;
    void startTaking() override;
    void takeInList() override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void leaveHeading();
    void followFinding();
    /// The selected row, or the first hit, which Return in the find field opens; -1 for none.
    int filledRow() const;
    void act(ListCommand command, int row);
    void showMenu(int row, const QPoint& globalPosition);
    bool isFilled(int row) const;

    PullRequestListModel& _model;
    RowDelegate _rows;
    QStringList _words;  ///< What was to be found before the list changed.
    std::optional<PullRequestKit::PullRequestID> _selected;  ///< Likewise.
    std::optional<PullRequestKit::PullRequestID> _selectedBeforeFinding;
    std::string _account;
    QPointer<QMenu> _menu;
    QBasicTimer _ageTimer;  ///< Runs while the list is in sight.
};

}  // namespace Tarnwick
