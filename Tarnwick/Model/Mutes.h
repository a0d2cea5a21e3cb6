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

/// A pull request is muted until it is another one than was seen.
struct MutedUntilChange {
    PullRequestKit::SeenPullRequest seen;
    PullRequestKit::Date listedAt{};  ///< When a refresh last listed it, to the day.

    bool operator==(const MutedUntilChange&) const = default;
};

/// A pull request is muted until this time.
struct MutedUntilTime {
    PullRequestKit::Date time{};

    bool operator==(const MutedUntilTime&) const = default;
};

using Mute = std::variant<MutedUntilChange, MutedUntilTime>;

/// The muted pull requests by their storage keys.
using Mutes = std::map<std::string, Mute>;

/// Orders logins without letter case, as GitHub compares them.
struct LoginOrder {
    // NOLINTNEXTLINE(readability-identifier-naming): the standard library looks for this name.
    using is_transparent = void;

    bool operator()(std::string_view left, std::string_view right) const;
};

using Logins = std::set<std::string, LoginOrder>;

/// For how long "For a Day" mutes.
inline constexpr std::chrono::days muteDay{1};

/// A mute until change of a pull request that was not listed for this long is forgotten.
inline constexpr std::chrono::days muteMemory{90};

/// The mute that holds for the pull request as it is; null when there is none. One that lasts for a
/// time holds as long as it is there: `withoutEnded` takes it out. Safe from any thread.
const Mute* muteOf(const PullRequestKit::PullRequest& pullRequest, const Mutes& mutes);

/// The mutes that have not ended by `now`. After the clock was set back, none lasts longer than it
/// would have. Safe from any thread.
Mutes withoutEnded(Mutes mutes, PullRequestKit::Date now);

/// The same after a refresh that lists these: mutes of what has changed have ended, too.
Mutes withoutEnded(
    Mutes mutes, std::span<const PullRequestKit::PullRequest> listed, PullRequestKit::Date now);

/// When the next mute ends by its time; nothing when none does. Safe from any thread.
std::optional<PullRequestKit::Date> nextMuteEnd(const Mutes& mutes);

}  // namespace Tarnwick
