#pragma once

#include "GitHubProvider/BaseRef.h"
#include "GitHubProvider/BaseRuleCache.h"
#include "GitHubProvider/Gh.h"
#include "GitHubProvider/GraphQL.h"

#include <optional>
#include <set>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace GitHub {

/// The rules of some branches; null for an id that GitHub does not know.
using BaseRulesEnvelope = GraphQLAnswer<NodeList<std::optional<BaseRef>>>;

/// The arguments of `gh` that request these rules. Safe from any thread.
std::vector<std::string> baseRulesArguments(std::span<const std::string> ids);

/// The required approvals of these branches, from the cache or from GitHub in batches of fifty.
/// Branches that require none are left out. Blocks; call on a worker thread. Throws
/// `ProviderError`, `DecodingError` and what `Gh::run` throws; the cache is then unchanged.
BaseRuleCounts loadBaseRules(
    const std::set<std::string>& ids,
    const Gh& gh,
    BaseRuleCache& cache,
    std::stop_token stopToken);

}  // namespace GitHub
