#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QStackedWidget>

namespace Tarnwick {

class Notice;

/// The panel between header and footer, depending on the model's state. Main thread only.
class ContentArea final : public QStackedWidget {
    Q_OBJECT

public:
    /// `list` shows the rows; it becomes a child.
    ContentArea(PullRequestMenuModel& model, QWidget* list, QWidget* parent);

    /// Hidden pull requests count as content.
    void setShowsHidden(bool showsHidden);

    bool showsList() const { return currentWidget() == _list; }

Q_SIGNALS:
    void repositoriesRequested();
    void showHiddenRequested();
    void showsListChanged();

private:
    void update();

    PullRequestMenuModel& _model;
    QWidget* _list;
    Notice* _notice;
    bool _showsHidden = false;
};

}  // namespace Tarnwick
