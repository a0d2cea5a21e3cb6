#include "GitHubProvider/BaseRules.h"

#include "GitHubProvider/RequestFailure.h"
#include "GitHubProvider/Text.h"
#include "PullRequestKit/Json/Reading.h"

#include <algorithm>
#include <cstddef>

namespace GitHub {
namespace {

constexpr std::size_t batchSize = 50;

constexpr const char* documentArgument = R"(query=query($ids:[ID!]!) {
  nodes(ids:$ids) {
    ... on Ref {
      id
      refUpdateRule { requiredApprovingReviewCount }
      rules(first:100) { nodes {
        type
        parameters { ... on PullRequestParameters { requiredApprovingReviewCount } }
      } }
    }
  }
})";

/// Adds a result for every id of the batch; an empty one when GitHub returned no rule.
void loadBatch(
    BaseRuleResults& results,
    std::span<const std::string> batch,
    const Gh& gh,
    const std::stop_token& stopToken)
{
    const CommandResult result = gh.run(baseRulesArguments(batch), stopToken);
    if (result.status != 0) {
        throwRequestFailure(decodeText(result.standardError));
    }
    const auto envelope = PullRequestKit::Json::decode<BaseRulesEnvelope>(result.standardOutput);
    if (const auto failures = envelope.failures(); !failures.empty()) {
        throwRequestFailure(graphQLMessage(failures));
    }
    for (const std::string& id : batch) {
        results[id] = std::nullopt;
    }
    if (!envelope.data) {
        return;
    }
    for (const std::optional<BaseRef>& ref : envelope.data->nodes) {
        if (ref && ref->id) {
            results[*ref->id] = ref->requiredApprovingReviewCount();
        }
    }
}

}  // namespace

std::vector<std::string> baseRulesArguments(std::span<const std::string> ids)
{
    std::vector<std::string> arguments{"api", "graphql", "-f", documentArgument};
    for (const std::string& id : ids) {
        arguments.emplace_back("-F");
        arguments.push_back("ids[]=" + id);
    }
    return arguments;
}

BaseRuleCounts loadBaseRules(
    const std::set<std::string>& ids, const Gh& gh, BaseRuleCache& cache, std::stop_token stopToken)
{
    auto [counts, missing] = cache.lookup({ids.begin(), ids.end()});
    BaseRuleResults results;
    for (std::size_t first = 0; first < missing.size(); first += batchSize) {
        const std::size_t count = std::min(batchSize, missing.size() - first);
        loadBatch(results, std::span(missing).subspan(first, count), gh, stopToken);
    }
    cache.store(results);
    for (const auto& [id, count] : results) {
        if (count) {
            counts.insert_or_assign(id, *count);
        }
    }
    return std::move(counts);
}

}  // namespace GitHub
