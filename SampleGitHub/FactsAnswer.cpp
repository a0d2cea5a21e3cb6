#include "SampleGitHub/FactsAnswer.h"

#include "SampleGitHub/FactsDocument.h"
#include "SampleGitHub/FactsRendering.h"
#include "SampleGitHub/SearchQuery.h"

#include <algorithm>
#include <utility>

namespace SampleGitHub {
namespace {

namespace json = boost::json;

/// Finds a repository by its current or a former name.
const Repository* repositoryNamed(const Scenario& scenario, const std::string& fullName)
{
    const auto found = std::ranges::find_if(scenario.repositories, [&](const Repository& known) {
        return known.fullName == fullName
               || std::ranges::find(known.formerNames, fullName) != known.formerNames.end();
    });
    return found != scenario.repositories.end() ? &*found : nullptr;
}

void addNotFound(json::array& errors, json::array path, const std::string& message)
{
    errors.push_back(
        json::object{{"type", "NOT_FOUND"}, {"path", std::move(path)}, {"message", message}});
}

json::value answerRow(
    const FactsRow& row,
    const FactsDocument& document,
    const Scenario& scenario,
    PullRequestKit::Date now,
    json::array& errors)
{
    const std::string name = row.owner + "/" + row.name;
    const Repository* const repository = repositoryNamed(scenario, name);
    if (repository == nullptr) {
        const std::string message =
            "Could not resolve to a Repository with the name '" + name + "'.";
        addNotFound(errors, {row.alias}, message);
        return nullptr;
    }
    const auto found = std::ranges::find_if(scenario.pullRequests, [&](const PullRequest& one) {
        return one.repository == repository->fullName && one.number == row.number;
    });
    json::object answer{{"nameWithOwner", repository->fullName}, {"pullRequest", nullptr}};
    if (found != scenario.pullRequests.end()) {
        answer["pullRequest"] = renderFacts(*found, scenario, document.fields, now);
    } else {
        const std::string message = "Could not resolve to a PullRequest with the number of "
                                    + std::to_string(row.number) + ".";
        addNotFound(errors, {row.alias, "pullRequest"}, message);
    }
    return answer;
}

/// The cost is a point per hundred requested lists, and at least one per document.
json::object renderQuota(
    const Quota& quota, const FactsDocument& document, PullRequestKit::Date now)
{
    constexpr std::int64_t listsOfAPoint = 100;
    const bool hasLists =
        std::ranges::find(document.fields, "reviewThreads") != document.fields.end();
    const auto lists = hasLists ? static_cast<std::int64_t>(document.rows.size()) : 0;
    return {
        {"cost", std::max<std::int64_t>(1, (lists + listsOfAPoint / 2) / listsOfAPoint)},
        {"limit", quota.limit},
        {"remaining", quota.remaining},
        {"resetAt", PullRequestKit::formatDate(now + quota.end)}};
}

}  // namespace

std::string answerFacts(
    const GraphQlRequest& request,
    const Scenario& scenario,
    const GitHubOptions& options,
    PullRequestKit::Date now)
{
    FactsDocument document;
    try {
        document = readFactsDocument(request);
    } catch (const SearchError& error) {
        return renderGraphQlError(error.what());
    }
    json::array errors = unknownFieldErrors(document, options.withoutFields);
    if (!errors.empty()) {
        return json::serialize(json::object{{"errors", std::move(errors)}});
    }
    json::object data;
    for (const FactsRow& row : document.rows) {
        data.emplace(row.alias, answerRow(row, document, scenario, now, errors));
    }
    if (document.hasRateLimit) {
        data.emplace("rateLimit", renderQuota(options.quota, document, now));
    }
    json::object answer{{"data", std::move(data)}};
    if (!errors.empty()) {
        answer.emplace("errors", std::move(errors));
    }
    return json::serialize(answer);
}

}  // namespace SampleGitHub
