#pragma once

#include "Tarnwick/Interface/List/HeadedListView.h"
#include "Tarnwick/Interface/List/RowDelegate.h"
#include "Tarnwick/Interface/List/RowMenu.h"

#include <QBasicTimer>
#include <QMenu>
#include <QPointer>

#include <optional>

namespace Tarnwick {

/// The list of pull requests. It shows the model's rows and reports what the user wants to do with
/// them; only copying is done here. Main thread only.
class PullRequestListView final : public HeadedListView {
    Q_OBJECT

public:
    /// Requires: `model` outlives the view.
    explicit PullRequestListView(PullRequestListModel& model, QWidget* parent = nullptr);

    const RowDelegate& rows() const { return _rows; }

    RowState situation(int row) const;

    /// The user's login; empty when unknown.
    void setAccount(const std::string& account) { _account = account; }

    bool isMenuOpen() const { return _menu != nullptr && _menu->isVisible(); }

    /// Opens the filled row during a search, if there is a hit.
    void openHit();

    void doItemsLayout() override;
    int rowHeight(int row) const override;
    void paintRow(QPainter& painter, int row, const QRect& place) const override;

Q_SIGNALS:
    /// By key, pointer or context menu.
    void actionRequested(RowAction action, const PullRequestKit::PullRequest& pullRequest);
    void findRequested();

protected:
    int headingHeight() const override { return _rows.metrics().heading; }

    bool isOnButton(int row, const QPoint& position) const override;
    QString rowToolTip(int row, const QPoint& position) const override;
    QRect toolTipPlace(int row, const QPoint& position) const override;
    void clicked(int row, bool onButton, const QMouseEvent& event) override;

    bool takes(Qt::MouseButton button) const override
    {
        return button == Qt::LeftButton || button == Qt::MiddleButton;
    }

    Qt::CursorShape cursorOver(bool /*onButton*/) const override { return Qt::PointingHandCursor; }

    int rowToBegin() const override
    {
        return _model.isFinding() ? _model.firstPullRequest() : firstRowInSight();
    }

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
    QStringList _words;  ///< The search before the list changed.
    std::optional<PullRequestKit::PullRequestID>
        _selected;  ///< The selection before the list changed.
    std::optional<PullRequestKit::PullRequestID> _selectedBeforeFinding;
    std::string _account;
    QPointer<QMenu> _menu;
    QBasicTimer _ageTimer;  ///< Active while the list is visible.
};

}  // namespace Tarnwick
