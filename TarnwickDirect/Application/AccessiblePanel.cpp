#include "TarnwickDirect/Application/AccessiblePanel.h"

#include "TarnwickDirect/Application/PanelWindow.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace TarnwickDirect {
namespace {

class AccessiblePanel final : public QAccessibleWidget {
public:
    explicit AccessiblePanel(PanelWindow* window)
        : QAccessibleWidget(window, QAccessible::Window, window->windowTitle())
        , _content(window->content())
    {}

    int childCount() const override { return _content == nullptr ? 0 : 1; }

    QAccessibleInterface* child(int index) const override
    {
        return index == 0 && _content != nullptr ? QAccessible::queryAccessibleInterface(_content)
                                                 : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child != nullptr && child->object() == _content ? 0 : -1;
    }

private:
    QPointer<QWidget> _content;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* const window = qobject_cast<PanelWindow*>(object);
    return window == nullptr ? nullptr : new AccessiblePanel(window);
}

}  // namespace

void installAccessiblePanel()
{
    QAccessible::installFactory(makeInterface);
}

}  // namespace TarnwickDirect
