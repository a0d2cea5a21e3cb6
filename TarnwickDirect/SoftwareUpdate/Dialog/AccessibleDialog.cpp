#include "TarnwickDirect/SoftwareUpdate/Dialog/AccessibleDialog.h"

#include "TarnwickDirect/SoftwareUpdate/Dialog/DownloadBar.h"
#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialog.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace TarnwickDirect {
namespace {

/// A progress bar in percent, which nobody but the download sets.
class AccessibleBar final
    : public QAccessibleWidget
    , public QAccessibleValueInterface {
public:
    explicit AccessibleBar(DownloadBar* bar)
        : QAccessibleWidget(bar, QAccessible::ProgressBar)
        , _bar(*bar)
    {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return static_cast<int>(_bar.share() * 100); }

    void setCurrentValue(const QVariant& /*value*/) override {}

    QVariant maximumValue() const override { return 100; }

    QVariant minimumValue() const override { return 0; }

    QVariant minimumStepSize() const override { return 1; }

private:
    DownloadBar& _bar;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    if (auto* const bar = dynamic_cast<DownloadBar*>(object)) {
        return new AccessibleBar(bar);
    }
    auto* const dialog = qobject_cast<UpdateDialog*>(object);
    return dialog == nullptr ? nullptr : new QAccessibleWidget(dialog, QAccessible::Dialog);
}

}  // namespace

void installAccessibleDialog()
{
    // The same factory again is not taken.
    QAccessible::installFactory(makeInterface);
}

}  // namespace TarnwickDirect
