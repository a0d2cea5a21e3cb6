#pragma once

#include "Tarnwick/Interface/Panel/PanelContent.h"

#include <QWidget>

namespace Tarnwick {

class Appearance;
class HintText;
class MessageText;
class PushButton;

/// What to do about `gh` before anything can be listed.
class AuthenticationPanel final : public QWidget {
    Q_OBJECT

public:
    AuthenticationPanel(const Appearance& appearance, QWidget* parent);

    void show(const AuthenticationContent& content);

Q_SIGNALS:
    void tryAgainRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void copyCommand();
    void layOut();
    void layOutButtons(int top);

    const Appearance& _appearance;
    AuthenticationContent _content;
    MessageText* _title;
    MessageText* _message;
    HintText* _hint;
    PushButton* _copy;
    PushButton* _tryAgain;
    QRect _icon;
};

}  // namespace Tarnwick
