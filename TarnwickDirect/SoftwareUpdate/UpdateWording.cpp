#include "TarnwickDirect/SoftwareUpdate/UpdateWording.h"

namespace TarnwickDirect::UpdateWording {

QString noUpdate(const NoUpdate& reason, const UpdateNeeds& needs)
{
    switch (reason.reason) {
    case NoUpdate::Reason::empty:
        return QStringLiteral("The update feed offers no version for this system.");
    case NoUpdate::Reason::upToDate:
        return QStringLiteral("Tarnwick %1 is the newest version available.").arg(needs.ownVersion);
    case NoUpdate::Reason::onlyOlder:
        return QStringLiteral(
                   "Tarnwick %1 is newer than the newest version in the update feed, %2.")
            .arg(needs.ownVersion, reason.version);
    case NoUpdate::Reason::systemTooOld:
        return QStringLiteral("Tarnwick %1 needs Linux %2 or newer, and this system has Linux %3.")
            .arg(reason.version, reason.systemVersion, needs.systemVersion);
    case NoUpdate::Reason::skipped:
        return QStringLiteral("Tarnwick %1 is available, and you have skipped it.")
            .arg(reason.version);
    }
    return {};
}

bool isUpToDate(const NoUpdate& reason)
{
    return reason.reason == NoUpdate::Reason::upToDate
           || reason.reason == NoUpdate::Reason::onlyOlder;
}

}  // namespace TarnwickDirect::UpdateWording
