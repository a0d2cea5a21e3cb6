#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QStackedWidget>

namespace Tarnwick {

class Notice;

/// What stands between header and footer, chosen by the model's state. Main thread only.
class ContentArea final : public QStackedWidget {
    Q_OBJECT

public:
    /// `list` shows the rows; the area takes it over.
    ContentArea(PullRequestMenuModel& model, QWidget* list, QWidget* parent);

    /// Lists what is hidden, too, in place of saying that there is nothing.
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
