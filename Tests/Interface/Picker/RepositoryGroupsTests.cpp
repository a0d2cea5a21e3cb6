#include "Tarnwick/Interface/Picker/RepositoryGroups.h"

#include "Support/Mapped.h"

#include <gmock/gmock.h>

namespace Tarnwick {
namespace {

using PullRequestKit::RepositorySummary;
using testing::ElementsAre;

std::vector<RepositorySummary> named(const std::vector<std::string>& names)
{
    std::vector<RepositorySummary> repositories;
    for (const std::string& name : names) {
        repositories.emplace_back().fullName = name;
    }
    return repositories;
}

std::vector<std::string> ownersOf(const std::vector<RepositoryGroup>& groups)
{
    return TestSupport::mapped(groups, &RepositoryGroup::owner);
}

std::vector<std::string> namesOf(const RepositoryGroup& group)
{
    return TestSupport::mapped(group.repositories, &PullRequestKit::RepositorySummary::fullName);
}

TEST(RepositoryGroupsTests, theOwnerIsThePartBeforeTheFirstSlash)
{
    EXPECT_EQ(ownerOf("octo/tools"), "octo");
    EXPECT_EQ(ownerOf("octo/tools/more"), "octo");
    EXPECT_EQ(ownerOf("tools"), "tools");
    EXPECT_EQ(ownerOf("/tools"), "");
    EXPECT_EQ(nameOf("octo/tools"), "tools");
    EXPECT_EQ(nameOf("octo/tools/more"), "tools/more");
    EXPECT_EQ(nameOf("tools"), "tools");
}

TEST(RepositoryGroupsTests, aRepositoryNamedRepo10SortsAfterOneNamedRepo9)
{
    const auto groups = repositoryGroups(named({"octo/repo-10", "octo/repo-9", "octo/repo-1"}));
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_THAT(namesOf(groups[0]), ElementsAre("octo/repo-1", "octo/repo-9", "octo/repo-10"));
}

TEST(RepositoryGroupsTests, groupsAreSortedByOwner)
{
    const auto groups =
        repositoryGroups(named({"team-10/b", "Fenland/z", "team-9/b", "arbour/m", "Fenland/A"}));
    EXPECT_THAT(ownersOf(groups), ElementsAre("arbour", "Fenland", "team-9", "team-10"));
    EXPECT_THAT(namesOf(groups[1]), ElementsAre("Fenland/A", "Fenland/z"));
}

TEST(RepositoryGroupsTests, letterCaseTellsOwnersApartButDoesNotOrderThem)
{
    const auto groups = repositoryGroups(named({"octo/b", "Octo/B", "Octo/a", "octo/A"}));
    EXPECT_THAT(ownersOf(groups), ElementsAre("octo", "Octo"));
    EXPECT_THAT(namesOf(groups[0]), ElementsAre("octo/A", "octo/b"));
    EXPECT_THAT(namesOf(groups[1]), ElementsAre("Octo/a", "Octo/B"));
}

TEST(RepositoryGroupsTests, namesThatCompareEqualKeepTheirOrder)
{
    const auto groups = repositoryGroups(named({"octo/Tools", "octo/tools", "octo/TOOLS"}));
    EXPECT_THAT(namesOf(groups.at(0)), ElementsAre("octo/Tools", "octo/tools", "octo/TOOLS"));
}

TEST(RepositoryGroupsTests, noRepositoriesMakeNoGroups)
{
    EXPECT_TRUE(repositoryGroups({}).empty());
}

}  // namespace
}  // namespace Tarnwick
