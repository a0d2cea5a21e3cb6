#include "Tarnwick/Model/Mutes.h"

#include <algorithm>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

constexpr std::chrono::days toTheDay{1};

char lowerCase(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool hasChanged(const MutedUntilChange& mute, const PullRequest& pullRequest)
{
    return pullRequest.updatedAt > mute.seen.updatedAt
           || !changesBetween(mute.seen, seenNow(pullRequest, nullptr)).empty();
}

}  // namespace

bool LoginOrder::operator()(std::string_view left, std::string_view right) const
{
    return std::ranges::lexicographical_compare(left, right, {}, lowerCase, lowerCase);
}

const Mute* muteOf(const PullRequest& pullRequest, const Mutes& mutes)
{
    if (mutes.empty()) {
        return nullptr;
    }
    const auto found = mutes.find(pullRequest.id.storageKey());
    if (found == mutes.end()) {
        return nullptr;
    }
    const auto* const untilChange = std::get_if<MutedUntilChange>(&found->second);
    return untilChange != nullptr && hasChanged(*untilChange, pullRequest) ? nullptr
                                                                           : &found->second;
}

Mutes withoutEnded(Mutes mutes, Date now)
{
    for (auto& [key, mute] : mutes) {
        if (auto* const untilTime = std::get_if<MutedUntilTime>(&mute)) {
            untilTime->time = std::min(untilTime->time, now + muteDay);
        }
    }
    std::erase_if(mutes, [&](const auto& entry) {
        const auto* const untilTime = std::get_if<MutedUntilTime>(&entry.second);
        return untilTime != nullptr && untilTime->time <= now;
    });
    return mutes;
}

Mutes withoutEnded(Mutes mutes, std::span<const PullRequest> listed, Date now)
{
    if (mutes.empty()) {
        return mutes;
    }
    for (const PullRequest& pullRequest : listed) {
        const auto found = mutes.find(pullRequest.id.storageKey());
        auto* const mute =
            found == mutes.end() ? nullptr : std::get_if<MutedUntilChange>(&found->second);
        if (mute != nullptr && hasChanged(*mute, pullRequest)) {
            mutes.erase(found);
        } else if (mute != nullptr && std::chrono::abs(now - mute->listedAt) >= toTheDay) {
            mute->listedAt = now;
        }
    }
    std::erase_if(mutes, [&](const auto& entry) {
        const auto* const mute = std::get_if<MutedUntilChange>(&entry.second);
        return mute != nullptr && now - mute->listedAt > muteMemory;
    });
    return withoutEnded(std::move(mutes), now);
}

std::optional<Date> nextMuteEnd(const Mutes& mutes)
{
    std::optional<Date> next;
    for (const auto& [key, mute] : mutes) {
        const auto* const untilTime = std::get_if<MutedUntilTime>(&mute);
        if (untilTime != nullptr && (!next || untilTime->time < *next)) {
            next = untilTime->time;
        }
    }
    return next;
}

}  // namespace Tarnwick
