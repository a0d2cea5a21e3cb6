#include "TarnwickDirect/SoftwareUpdate/Dialog/AccessibleDialog.h"

#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialog.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace TarnwickDirect {
namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
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
