#include "GitHubProvider/BaseRef.h"

#include <algorithm>

namespace GitHub {

std::optional<std::int64_t> BaseRef::requiredApprovingReviewCount() const
{
    // An empty optional is less than every number, so the greatest one is the strictest rule.
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
