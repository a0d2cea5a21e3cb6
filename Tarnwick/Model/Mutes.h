#pragma once

#include "PullRequestKit/SeenPullRequest.h"

#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace Tarnwick {

/// Mutes a pull request until it changes.
struct MutedUntilChange {
    PullRequestKit::SeenPullRequest seen;
    PullRequestKit::Date listedAt{};  ///< The last refresh that listed it, to the day.

    bool operator==(const MutedUntilChange&) const = default;
};

struct MutedUntilTime {
    PullRequestKit::Date time{};

    bool operator==(const MutedUntilTime&) const = default;
};

using Mute = std::variant<MutedUntilChange, MutedUntilTime>;

/// By storage key.
using Mutes = std::map<std::string, Mute>;

/// Orders logins, ignoring letter case like GitHub.
struct LoginOrder {
    // NOLINTNEXTLINE(readability-identifier-naming): the standard library looks for this name.
    using is_transparent = void;

    bool operator()(std::string_view left, std::string_view right) const;
};

using Logins = std::set<std::string, LoginOrder>;

/// The duration of "For a Day".
inline constexpr std::chrono::days muteDay{1};

/// A mute until change expires when its pull request was not listed for this long.
inline constexpr std::chrono::days muteMemory{90};

/// The mute in effect; null when there is none. A `MutedUntilTime` counts until `withoutEnded`
/// removes it. Safe from any thread.
const Mute* muteOf(const PullRequestKit::PullRequest& pullRequest, const Mutes& mutes);

/// The mutes that have not ended by `now`. After the clock was set back, none lasts longer than it
/// originally would. Safe from any thread.
Mutes withoutEnded(Mutes mutes, PullRequestKit::Date now);

/// The same after a refresh: also ends the mutes of changed pull requests.
Mutes withoutEnded(
    Mutes mutes, std::span<const PullRequestKit::PullRequest> listed, PullRequestKit::Date now);

/// When the next `MutedUntilTime` ends; nothing when there is none. Safe from any thread.
std::optional<PullRequestKit::Date> nextMuteEnd(const Mutes& mutes);

}  // namespace Tarnwick
