#include "Tarnwick/Interface/Picker/RepositoryGroups.h"

#include "PullRequestKit/LocalizedStandardComparison.h"

#include <algorithm>
#include <unordered_map>

namespace Tarnwick {

using PullRequestKit::RepositorySummary;
using PullRequestKit::sortByLocalizedName;

std::string_view ownerOf(std::string_view fullName)
{
    return fullName.substr(0, fullName.find('/'));
}

std::string_view nameOf(std::string_view fullName)
{
    const std::size_t slash = fullName.find('/');
    return slash == std::string_view::npos ? fullName : fullName.substr(slash + 1);
}

std::vector<RepositoryGroup> repositoryGroups(const std::vector<RepositorySummary>& repositories)
{
    std::vector<RepositoryGroup> groups;
    std::unordered_map<std::string_view, std::size_t> places;
    for (const RepositorySummary& repository : repositories) {
        const std::string_view owner = ownerOf(repository.fullName);
        if (places.try_emplace(owner, groups.size()).second) {
            groups.push_back({.owner = std::string(owner), .repositories = {}});
        }
    }
    // Sorted at once, because setting up the comparison is expensive.
    std::vector<const RepositorySummary*> sorted;
    sorted.reserve(repositories.size());
    for (const RepositorySummary& repository : repositories) {
        sorted.push_back(&repository);
    }
    sortByLocalizedName(sorted, [](const RepositorySummary* repository) -> const std::string& {
        return repository->fullName;
    });
    for (const RepositorySummary* const repository : sorted) {
        groups[places.at(ownerOf(repository->fullName))].repositories.push_back(*repository);
    }
    sortByLocalizedName(
        groups, [](const RepositoryGroup& group) -> const std::string& { return group.owner; });
    return groups;
}

}  // namespace Tarnwick
