#include "Tarnwick/Interface/Panel/AccessibleParts.h"

#include "Tarnwick/Interface/Controls/ProgressBar.h"
#include "Tarnwick/Interface/List/AccessibleList.h"
#include "Tarnwick/Interface/List/PullRequestListView.h"
#include "Tarnwick/Interface/Panel/CardOverlay.h"
#include "Tarnwick/Interface/Panel/Strip.h"

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

/// It tells no value, because nobody knows how much is done.
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

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    if (auto* const card = qobject_cast<CardOverlay*>(object)) {
        return new AccessibleCard(card);
    }
    if (auto* const strip = qobject_cast<Strip*>(object)) {
        const bool isError = strip->tone() == Strip::Tone::error;
        return new QAccessibleWidget(
            strip, isError ? QAccessible::AlertMessage : QAccessible::Notification);
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
    // The same factory again is not taken.
    QAccessible::installFactory(makeInterface);
}

}  // namespace Tarnwick
