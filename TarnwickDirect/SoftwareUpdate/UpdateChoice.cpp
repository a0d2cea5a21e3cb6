#include "TarnwickDirect/SoftwareUpdate/UpdateChoice.h"

#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

namespace TarnwickDirect {
namespace {

/// An item with the one of its files that suits.
struct Candidate {
    const AppcastItem* item = nullptr;
    const AppcastEnclosure* enclosure = nullptr;

    explicit operator bool() const { return item != nullptr; }
};

const AppcastEnclosure* suitableEnclosure(const AppcastItem& item, const UpdateNeeds& needs)
{
    for (const AppcastEnclosure& enclosure : item.enclosures) {
        const bool suitsSystem =
            enclosure.operatingSystem.isEmpty() || enclosure.operatingSystem == u"linux";
        if (suitsSystem && (!needs.format || packageFormatOf(enclosure) == *needs.format)) {
            return &enclosure;
        }
    }
    return nullptr;
}

std::vector<Candidate> candidatesOf(const Appcast& feed, const UpdateNeeds& needs)
{
    std::vector<Candidate> candidates;
    for (const AppcastItem& item : feed.items) {
        const bool isInChannel = item.channel.isEmpty() || needs.channels.contains(item.channel);
        const AppcastEnclosure* const enclosure = suitableEnclosure(item, needs);
        if (!item.version.isEmpty() && isInChannel && enclosure) {
            candidates.push_back({&item, enclosure});
        }
    }
    return candidates;
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

bool isCriticalFor(const AppcastItem& item, const QString& version)
{
    return item.isCritical
           && (item.criticalBelow.isEmpty() || compareVersions(version, item.criticalBelow) < 0);
}

NoUpdate noUpdate(const Candidate& newest, const UpdateNeeds& needs)
{
    if (!newest) {
        return {};
    }
    const AppcastItem& item = *newest.item;
    NoUpdate result;
    result.version = item.shortVersion.isEmpty() ? item.version : item.shortVersion;
    const auto order = compareVersions(item.version, needs.ownVersion);
    if (order > 0) {
        result.reason = NoUpdate::Reason::systemTooOld;
        result.systemVersion = item.minimumSystemVersion;
    } else {
        result.reason = order == 0 ? NoUpdate::Reason::upToDate : NoUpdate::Reason::onlyOlder;
    }
    return result;
}

}  // namespace

std::variant<UpdateOffer, NoUpdate> chooseUpdate(const Appcast& feed, const UpdateNeeds& needs)
{
    Candidate newest;
    Candidate chosen;
    bool isCritical = false;
    for (const Candidate& candidate : candidatesOf(feed, needs)) {
        const AppcastItem& item = *candidate.item;
        if (!newest || isNewer(item, newest.item->version)) {
            newest = candidate;
        }
        if (!isNewer(item, needs.ownVersion) || !runsOn(item, needs.systemVersion)) {
            continue;
        }
        isCritical = isCritical || isCriticalFor(item, needs.ownVersion);
        if (!chosen || isNewer(item, chosen.item->version)) {
            chosen = candidate;
        }
    }
    if (!chosen) {
        return noUpdate(newest, needs);
    }
    UpdateOffer offer = makeOffer(*chosen.item, *chosen.enclosure, isCritical);
    const bool isSkipped = !needs.skippedVersion.isEmpty()
                           && compareVersions(offer.version, needs.skippedVersion) == 0;
    if (isSkipped && !isCritical) {
        return NoUpdate{NoUpdate::Reason::skipped, offer.displayedVersion, {}};
    }
    return offer;
}

}  // namespace TarnwickDirect
