#pragma once

#include "Tarnwick/Interface/Panel/PanelContent.h"

#include <QWidget>

#include <map>

class QBoxLayout;
class QSpacerItem;

namespace Tarnwick {

class HintText;
class MessageText;
class PushButton;
class Spinner;

/// A centered notice: an icon, a title, a message, and a spinner or buttons. What is below the
/// message always fits. In a low window the message scrolls, or the title if there is no message;
/// the icon is dropped if hardly a line of the message would be left.
class Notice final : public QWidget {
    Q_OBJECT

public:
    explicit Notice(QWidget* parent);

    void show(const NoticeContent& content);

Q_SIGNALS:
    void triggered(Tarnwick::NoticeAction action);

protected:
    void paintEvent(QPaintEvent* event) override;

    void resizeEvent(QResizeEvent* /*event*/) override { fit(); }

private:
    void addButton(NoticeAction action, const char* text, const char* name);
    void fit();
    void setHasIcon(bool hasIcon);

    NoticeContent _content;
    QSpacerItem* _icon;
    MessageText* _title;
    MessageText* _message;
    HintText* _hint;
    Spinner* _spinner;
    QBoxLayout* _row;
    std::map<NoticeAction, PushButton*> _buttons;
};

}  // namespace Tarnwick
