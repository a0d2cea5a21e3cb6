#pragma once

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Panel/CardOverlay.h"

namespace Tarnwick {

class MessageText;

/// A modal message. Return presses the primary button, Esc the one that changes nothing.
class Alert final : public CardOverlay {
    Q_OBJECT

public:
    struct Buttons {
        QString primary;
        QString cancel;      ///< Empty if the primary button changes nothing.
        QString copyHelp;    ///< Empty if there is nothing to copy.
        QString other = {};  ///< An alternative; may be empty.
    };

    Alert(const QString& title, const Buttons& buttons, QWidget* parent);

    void setMessage(const QString& message);

    /// Whether to show the button `other`; it is initially shown.
    void setOffersOther(bool offersOther);

Q_SIGNALS:
    void primaryTriggered();
    /// By Esc or the button that changes nothing.
    void cancelled();
    void copyTriggered();
    void otherTriggered();

protected:
    void fit(int width) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Returns null for an empty text.
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
