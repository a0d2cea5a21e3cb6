#include "GitHubProvider/FactsDocument.h"

#include <boost/json.hpp>
#include <cstdint>
#include <limits>

namespace GitHub {
namespace {

/// GitHub allows 39 characters for owners and 100 for repositories.
constexpr std::size_t longestName = 256;

constexpr std::size_t rateLimitPlace = factsFields.size() - 1;

/// GraphQL strings have the same escapes as JSON's.
std::string graphQLText(std::string_view text)
{
    return boost::json::serialize(boost::json::string(text));
}

void addPullRequest(
    std::string& document, std::size_t place, const PullRequestKit::PullRequestID& id)
{
    const std::string_view repository = id.repository;
    const std::size_t slash = repository.find('/');
    document.append("  ")
        .append(factsAlias(place))
        .append(": repository(owner:")
        .append(graphQLText(repository.substr(0, slash)))
        .append(", name:")
        .append(graphQLText(repository.substr(slash + 1)))
        .append(") { nameWithOwner pullRequest(number:")
        .append(std::to_string(id.number))
        .append(") { ...facts } }\n");
}

void addField(std::string& document, const FactsField& field)
{
    document.append("  ").append(field.name);
    if (!field.selection.empty()) {
        document.append(field.selection.starts_with('(') ? "" : " ").append(field.selection);
    }
    document.append("\n");
}

}  // namespace

bool haveFacts(const UnknownFields& unknown)
{
    for (std::size_t place = 0; place < factsFields.size(); ++place) {
        const std::string_view name = factsFields[place].name;
        const bool isNeeded =
            name == "headRefOid" || name == "reviewDecision" || name == "reviewThreads";
        if (isNeeded && unknown[place]) {
            return false;
        }
    }
    return true;
}

bool canBeAsked(const PullRequestKit::PullRequestID& id)
{
    const std::size_t slash = id.repository.find('/');
    return slash != std::string::npos && id.repository.size() <= longestName && id.number > 0
           && id.number <= std::numeric_limits<std::int32_t>::max();
}

std::string factsAlias(std::size_t place)
{
    return "p" + std::to_string(place);
}

std::vector<std::string> factsArguments(
    std::span<const PullRequestKit::PullRequest* const> pullRequests, const UnknownFields& unknown)
{
    std::string document = "query=query {\n";
    for (std::size_t place = 0; place < pullRequests.size(); ++place) {
        addPullRequest(document, place, pullRequests[place]->id);
    }
    if (!unknown[rateLimitPlace]) {
        addField(document, factsFields[rateLimitPlace]);
    }
    document += "}\nfragment facts on PullRequest {\n";
    for (std::size_t place = 0; place < rateLimitPlace; ++place) {
        if (!unknown[place]) {
            addField(document, factsFields[place]);
        }
    }
    return {"api", "graphql", "-f", document + "}"};
}

}  // namespace GitHub
