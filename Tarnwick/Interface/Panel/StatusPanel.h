#pragma once

#include "Tarnwick/Interface/Panel/PanelContent.h"

#include <QWidget>

namespace Tarnwick {

class Appearance;
class MessageText;
class PushButton;
class Spinner;

/// One thing to say, in the middle of the panel: an icon, a title, and a spinner or what can be
/// done.
class StatusPanel final : public QWidget {
    Q_OBJECT

public:
    StatusPanel(const Appearance& appearance, QWidget* parent);

    void show(const StatusContent& content);

Q_SIGNALS:
    void tryAgainRequested();
    void repositoriesRequested();
    void showHiddenRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    void layOutButtons(int top);
    int buttonsHeight() const;
    /// The button above or before "Try Again", or null.
    PushButton* primary() const;

    const Appearance& _appearance;
    StatusContent _content;
    MessageText* _title;
    MessageText* _detail;
    Spinner* _spinner;
    PushButton* _tryAgain;
    PushButton* _chooseRepositories;
    PushButton* _showHidden;
    QRect _icon;
};

}  // namespace Tarnwick
