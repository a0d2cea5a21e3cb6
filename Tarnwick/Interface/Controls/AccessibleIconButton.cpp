#include "Tarnwick/Interface/Controls/AccessibleIconButton.h"

#include "Tarnwick/Interface/Controls/IconButton.h"

#include <QAccessibleWidget>

namespace Tarnwick {
namespace {

class AccessibleIconButton final : public QAccessibleWidget {
public:
    explicit AccessibleIconButton(IconButton* button)
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
    IconButton& _button;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* const button = qobject_cast<IconButton*>(object);
    return button == nullptr ? nullptr : new AccessibleIconButton(button);
}

}  // namespace

void installAccessibleIconButton()
{
    // The same factory again is not taken.
    QAccessible::installFactory(makeInterface);
}

}  // namespace Tarnwick
