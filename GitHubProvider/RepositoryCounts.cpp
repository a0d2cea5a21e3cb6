#include "GitHubProvider/RepositoryCounts.h"

#include <cassert>
#include <chrono>
#include <iterator>

namespace GitHub {
namespace {

constexpr const char* documentArgument =
    R"(query=query($first:String!, $second:String!, $together:String!) {
  first: search(query:$first, type:ISSUE, first:1) { issueCount }
  second: search(query:$second, type:ISSUE, first:1) { issueCount }
  together: search(query:$together, type:ISSUE, first:1) { issueCount }
})";

}  // namespace

std::pair<std::string, std::string> repositoriesToCount(
    const std::set<std::string>& repositories,
    const std::optional<std::string>& known,
    PullRequestKit::Date now)
{
    assert(repositories.size() > 1);
    const auto days = std::chrono::floor<std::chrono::days>(now).time_since_epoch().count();
    const auto count = static_cast<std::int64_t>(repositories.size());
    const auto at = [&](std::int64_t place) {
        return *std::next(repositories.begin(), (place % count + count) % count);
    };
    const bool isKnown = known && repositories.contains(*known);
    const std::string first = isKnown ? *known : at(days);
    const std::string second = at(days + 1);
    return {first, second != first ? second : at(days + 2)};
}

std::vector<std::string> countArguments(const std::string& first, const std::string& second)
{
    const std::string alone = "is:pr repo:";
    return {
        "api",
        "graphql",
        "-f",
        documentArgument,
        "-f",
        "first=" + alone + first,
        "-f",
        "second=" + alone + second,
        "-f",
        "together=" + alone + first + " repo:" + second};
}

}  // namespace GitHub
