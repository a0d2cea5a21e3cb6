#include "Tarnwick/Interface/Panel/AccessibleParts.h"

#include "Tarnwick/Interface/Controls/ProgressBar.h"
#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/List/AccessibleList.h"
#include "Tarnwick/Interface/List/PullRequestListView.h"
#include "Tarnwick/Interface/Panel/CardOverlay.h"
#include "Tarnwick/Interface/Panel/InfoBar.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace Tarnwick {
namespace {

class AccessibleCard final : public QAccessibleWidget {
public:
    explicit AccessibleCard(CardOverlay* card)
        : QAccessibleWidget(card, QAccessible::Dialog)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = true;
        return state;
    }
};

/// It has no value, because the progress is unknown.
class AccessibleBar final : public QAccessibleWidget {
public:
    explicit AccessibleBar(ProgressBar* bar)
        : QAccessibleWidget(bar, QAccessible::ProgressBar)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.busy = true;
        return state;
    }
};

class AccessibleToggle final : public QAccessibleWidget {
public:
    explicit AccessibleToggle(PushButton* button)
        : QAccessibleWidget(button, QAccessible::Button)
        , _button(*button)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = _button.isDown() || (_button.isToggle() && _button.isOpen());
        return state;
    }

    QStringList actionNames() const override
    {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction()) {
            _button.click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    PushButton& _button;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    if (auto* const card = qobject_cast<CardOverlay*>(object)) {
        return new AccessibleCard(card);
    }
    if (auto* const infoBar = qobject_cast<InfoBar*>(object)) {
        const bool isError = infoBar->tone() == InfoBar::Tone::error;
        return new QAccessibleWidget(
            infoBar, isError ? QAccessible::AlertMessage : QAccessible::Notification);
    }
    if (auto* const button = qobject_cast<PushButton*>(object)) {
        return new AccessibleToggle(button);
    }
    if (auto* const list = qobject_cast<PullRequestListView*>(object)) {
        return makeAccessibleList(list);
    }
    if (auto* const bar = dynamic_cast<ProgressBar*>(object)) {
        return new AccessibleBar(bar);
    }
    return nullptr;
}

}  // namespace

void installAccessibleParts()
{
    // Qt ignores a factory that is already installed.
    QAccessible::installFactory(makeInterface);
}

}  // namespace Tarnwick
