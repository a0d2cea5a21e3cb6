#include "TarnwickDirect/Tray/TrayStatus.h"

#include <algorithm>

namespace TarnwickDirect {

using std::chrono::seconds;
using Tarnwick::RefreshFailure;

std::optional<seconds> untilTrouble(
    std::optional<RefreshFailure> failure,
    std::optional<PullRequestKit::Date> lastRefreshed,
    PullRequestKit::Date now)
{
    if (!failure) {
        return std::nullopt;
    }
    if (*failure != RefreshFailure::requestFailed || !lastRefreshed) {
        return seconds{0};
    }
    const seconds age = std::max(now - *lastRefreshed, seconds{0});
    return std::max(seconds{oldList} - age, seconds{0});
}

bool knowsPullRequests(const TrayStatus& status)
{
    return !status.failure || *status.failure == RefreshFailure::requestFailed;
}

}  // namespace TarnwickDirect
