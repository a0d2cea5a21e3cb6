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

/// The answer on the rules of some branches; null for an id that GitHub does not know.
using BaseRulesEnvelope = GraphQLAnswer<NodeList<std::optional<BaseRef>>>;

/// The arguments with which `gh` loads the rules of these branches. Safe from any thread.
std::vector<std::string> baseRulesArguments(std::span<const std::string> ids);

/// The numbers of required approvals of these branches, from the cache where it has them and
/// otherwise from GitHub, fifty at a time. Branches that require none are left out. Blocks; call on
/// a worker thread. Throws `ProviderError`, `DecodingError` and what `Gh::run` throws; then the
/// cache is as it was.
BaseRuleCounts loadBaseRules(
    const std::set<std::string>& ids,
    const Gh& gh,
    BaseRuleCache& cache,
    std::stop_token stopToken);

}  // namespace GitHub
