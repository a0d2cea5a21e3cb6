#include "GitHubProvider/BaseRef.h"

#include <algorithm>

namespace GitHub {

std::optional<std::int64_t> BaseRef::requiredApprovingReviewCount() const
{
    // An empty optional compares less than every number.
    std::optional<std::int64_t> strictest;
    const auto consider = [&](const std::optional<RequiredReviewsRule>& rule) {
        if (rule) {
            strictest = std::max(strictest, rule->requiredApprovingReviewCount);
        }
    };
    consider(refUpdateRule);
    if (rules) {
        for (const RepositoryRule& rule : rules->nodes) {
            consider(rule.parameters);
        }
    }
    return strictest;
}

}  // namespace GitHub
