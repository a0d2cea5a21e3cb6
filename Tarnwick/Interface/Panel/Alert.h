#pragma once

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Panel/CardOverlay.h"

namespace Tarnwick {

class MessageText;

/// A message that has to be answered. Return presses the primary button, Esc the one that changes
/// nothing.
class Alert final : public CardOverlay {
    Q_OBJECT

public:
    struct Buttons {
        QString primary;
        QString cancel;      ///< Empty where the primary button changes nothing either.
        QString copyHelp;    ///< Empty where there is nothing to copy.
        QString other = {};  ///< Another way out; empty where there is none.
    };

    Alert(const QString& title, const Buttons& buttons, QWidget* parent);

    QString title() const;
    QString message() const;
    void setMessage(const QString& message);

    /// Whether the other way out is offered; at first it is.
    void setOffersOther(bool offersOther);

Q_SIGNALS:
    void primaryTriggered();
    /// Esc or the button that changes nothing.
    void cancelled();
    void copyTriggered();
    void otherTriggered();

protected:
    void fit(int width) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Null without a text.
    PushButton* addButton(
        const QString& text,
        const char* name,
        void (Alert::*triggered)(),
        PushButton::Kind kind = PushButton::Kind::plain);

    MessageText* _title;
    MessageText* _message;
    QHBoxLayout* _row;
    PushButton* _other = nullptr;
    PushButton* _primary;
};

}  // namespace Tarnwick
