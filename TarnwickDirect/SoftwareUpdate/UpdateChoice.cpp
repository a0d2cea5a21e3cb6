#include "TarnwickDirect/SoftwareUpdate/UpdateChoice.h"

#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

#include <algorithm>

namespace TarnwickDirect {
namespace {

/// Whether the file is a Debian package for Linux, by media type or else by name.
bool isSuitable(const AppcastEnclosure& enclosure)
{
    const bool suitsSystem =
        enclosure.operatingSystem.isEmpty() || enclosure.operatingSystem == u"linux";
    return suitsSystem
           && (enclosure.type == u"application/vnd.debian.binary-package"
               || enclosure.url.path().endsWith(QStringLiteral(".deb"), Qt::CaseInsensitive));
}

bool isCandidate(const AppcastItem& item, const UpdateNeeds& needs)
{
    return !item.version.isEmpty()
           && (item.channel.isEmpty() || needs.channels.contains(item.channel))
           && std::ranges::any_of(item.enclosures, isSuitable);
}

bool isNewer(const AppcastItem& item, const QString& version)
{
    return compareVersions(item.version, version) > 0;
}

bool runsOn(const AppcastItem& item, const QString& systemVersion)
{
    return item.minimumSystemVersion.isEmpty()
           || compareVersions(item.minimumSystemVersion, systemVersion) <= 0;
}

bool isInstallable(const AppcastItem& item, const UpdateNeeds& needs)
{
    return isNewer(item, needs.ownVersion) && runsOn(item, needs.systemVersion);
}

bool isSkipped(const UpdateOffer& offer, const UpdateNeeds& needs)
{
    return !needs.skippedVersion.isEmpty()
           && compareVersions(offer.version, needs.skippedVersion) == 0;
}

bool isCriticalFor(const AppcastItem& item, const QString& version)
{
    return item.isCritical
           && (item.criticalBelow.isEmpty() || compareVersions(version, item.criticalBelow) < 0);
}

NoUpdate noUpdate(const AppcastItem* newest, const UpdateNeeds& needs)
{
    if (newest == nullptr) {
        return {QStringLiteral("The update feed offers no version for this system.")};
    }
    const QString& version =
        newest->shortVersion.isEmpty() ? newest->version : newest->shortVersion;
    const auto order = compareVersions(newest->version, needs.ownVersion);
    if (order > 0) {
        return {
            QStringLiteral("Tarnwick %1 requires Linux %2 or newer, but this system has Linux %3.")
                .arg(version, newest->minimumSystemVersion, needs.systemVersion)};
    }
    if (order < 0) {
        return {
            QStringLiteral("Tarnwick %1 is newer than the newest version in the update feed, %2.")
                .arg(needs.ownVersion, version),
            true};
    }
    return {
        QStringLiteral("Tarnwick %1 is the newest version available.").arg(needs.ownVersion), true};
}

}  // namespace

std::variant<UpdateOffer, NoUpdate> chooseUpdate(const Appcast& feed, const UpdateNeeds& needs)
{
    const AppcastItem* newest = nullptr;
    const AppcastItem* chosen = nullptr;
    bool isCritical = false;
    for (const AppcastItem& item : feed) {
        if (!isCandidate(item, needs)) {
            continue;
        }
        if (newest == nullptr || isNewer(item, newest->version)) {
            newest = &item;
        }
        if (!isInstallable(item, needs)) {
            continue;
        }
        isCritical = isCritical || isCriticalFor(item, needs.ownVersion);
        if (chosen == nullptr || isNewer(item, chosen->version)) {
            chosen = &item;
        }
    }
    if (chosen == nullptr) {
        return noUpdate(newest, needs);
    }
    const auto file = std::ranges::find_if(chosen->enclosures, isSuitable);
    UpdateOffer offer = makeOffer(*chosen, *file, isCritical);
    if (isSkipped(offer, needs) && !isCritical) {
        return NoUpdate{QStringLiteral("Tarnwick %1 is available, and you have skipped it.")
                            .arg(offer.displayedVersion)};
    }
    return offer;
}

}  // namespace TarnwickDirect
