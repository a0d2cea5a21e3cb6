#include "GitHubProvider/ReviewStates.h"

#include <algorithm>
#include <array>
#include <utility>

namespace GitHub {

std::optional<PullRequestKit::ReviewVerdict> reviewVerdict(std::string_view state)
{
    using PullRequestKit::ReviewVerdict;
    constexpr std::array<std::pair<std::string_view, ReviewVerdict>, 5> verdicts{{
        {approvedText, ReviewVerdict::approved},
        {changesRequestedText, ReviewVerdict::changesRequested},
        {commentedText, ReviewVerdict::commented},
        {"DISMISSED", ReviewVerdict::dismissed},
        {"PENDING", ReviewVerdict::pending},
    }};
    const auto* const found =
        std::ranges::find(verdicts, state, &std::pair<std::string_view, ReviewVerdict>::first);
    return found != verdicts.end() ? std::optional(found->second) : std::nullopt;
}

}  // namespace GitHub
