#include "GitHubProvider/RepositoryListing.h"

#include "GitHubProvider/APIRepository.h"
#include "ProviderTest.h"
#include "PullRequestKit/Errors.h"
#include "Support/Errors.h"
#include "Support/Mapped.h"

#include <vector>

namespace {

using namespace TestSupport;

class RepositoryListing : public ProviderTest {
protected:
    std::vector<RepositorySummary> repositories()
    {
        return provider->repositories(stop.get_token());
    }

    std::vector<std::string> names()
    {
        return mapped(repositories(), &RepositorySummary::fullName);
    }
};

std::string line(const std::string& name)
{
    return R"({"archived":false,"default_branch":"main","language":"C++","repository":")" + name
           + R"(","visibility":"public"})" + "\n";
}

TEST_F(RepositoryListing, asksWithExactlyTheseArguments)
{
    runner->prints("");
    EXPECT_THAT(repositories(), IsEmpty());
    EXPECT_THAT(
        runner->calls(),
        ElementsAre(ScriptedRunner::Call{
            "/opt/gh",
            {"api",
             "--hostname",
             "git.example",
             "user/repos?per_page=100&affiliation=owner,collaborator,organization_member",
             "--paginate",
             "--jq",
             ".[] | {\n"
             "  repository: .full_name,\n"
             "  visibility,\n"
             "  language,\n"
             "  default_branch,\n"
             "  archived\n"
             "}"}}));
    EXPECT_EQ(runner->lastToken(), stop.get_token());
}

TEST_F(RepositoryListing, emptyOutputIsAnEmptyList)
{
    runner->prints("");
    EXPECT_THAT(repositories(), IsEmpty());
    runner->prints("\n\n");
    EXPECT_THAT(repositories(), IsEmpty());
}

TEST_F(RepositoryListing, carriesEveryFieldOver)
{
    runner->prints(R"({"archived":true,"default_branch":"trunk","language":"C++",)"
                   R"("repository":"octo/tools","visibility":"private"})");
    EXPECT_THAT(
        repositories(),
        ElementsAre(RepositorySummary{"octo/tools", "private", "C++", "trunk", true}));
}

TEST_F(RepositoryListing, theLaterOfTwoLinesForTheSameNameStays)
{
    runner->prints(
        line("octo/tools") + line("octo/other")
        + R"({"archived":true,"default_branch":"dev","repository":"octo/tools"})" + "\n");
    EXPECT_THAT(
        repositories(),
        ElementsAre(
            RepositorySummary{"octo/other", "public", "C++", "main", false},
            RepositorySummary{"octo/tools", std::nullopt, std::nullopt, "dev", true}));
}

TEST_F(RepositoryListing, namesAreOrderedAsAFileBrowserDoes)
{
    runner->prints(line("octo/repo10") + line("Zebra/a") + line("octo/repo2") + line("apple/Z"));
    EXPECT_THAT(names(), ElementsAre("apple/Z", "octo/repo2", "octo/repo10", "Zebra/a"));
}

TEST_F(RepositoryListing, aRepositoryWithoutLanguageAndDefaultBranchHasThemAbsent)
{
    runner->prints(
        R"({"archived":false,"default_branch":null,"language":null,"repository":"octo/tools"})");
    EXPECT_THAT(
        repositories(),
        ElementsAre(
            RepositorySummary{"octo/tools", std::nullopt, std::nullopt, std::nullopt, false}));
}

TEST_F(RepositoryListing, archivedRepositoriesAreKept)
{
    runner->prints(R"({"archived":true,"repository":"octo/old"})");
    EXPECT_THAT(names(), ElementsAre("octo/old"));
}

TEST_F(RepositoryListing, withoutGhFailsBeforeAnythingIsRun)
{
    provider = makeProvider(std::nullopt);
    EXPECT_EQ(
        messageOf<ProviderError>([this] { repositories(); }), "GitHub CLI (gh) was not found.");
}

TEST_F(RepositoryListing, aFailingGhGivesItsTrimmedStandardError)
{
    runner->ends(1, line("octo/tools"), "\n gh: Bad credentials (HTTP 401)\xFF \n");
    EXPECT_EQ(
        messageOf<ProviderError>([this] { repositories(); }),
        "gh: Bad credentials (HTTP 401)\xEF\xBF\xBD");
}

TEST_F(RepositoryListing, aFailingGhThatIsSilentGivesAFixedText)
{
    runner->ends(4, "", "\n");
    EXPECT_EQ(
        messageOf<ProviderError>([this] { repositories(); }), "gh could not load repositories.");
}

TEST_F(RepositoryListing, aTimeOutIsPassedOn)
{
    runner->fails(ProviderError("GitHub CLI request timed out."));
    EXPECT_EQ(
        messageOf<ProviderError>([this] { repositories(); }), "GitHub CLI request timed out.");
}

TEST_F(RepositoryListing, cancellationIsPassedOn)
{
    runner->fails(CancellationError());
    EXPECT_THROW(repositories(), CancellationError);
}

struct BadLine {
    const char* name;
    const char* text;
    const char* path;
};

TEST_F(RepositoryListing, failsTheWholeList)
{
    const std::vector<BadLine> cases{
        {"notJson", "hello", ""},
        {"cutOff", R"({"repository": "octo/to)", ""},
        {"carriageReturn", "\r", ""},
        {"notUtf8", "{\"repository\": \"\xFF\", \"archived\": false}", ""},
        {"null", "null", ""},
        {"noName", R"({"archived": false})", "repository"},
        {"noArchivedFlag", R"({"repository": "octo/tools"})", "archived"},
        {"archivedAsText", R"({"repository": "a/b", "archived": "no"})", "archived"},
        {"languageAsNumber",
         R"({"repository": "a/b", "archived": false, "language": 1})",
         "language"}};
    for (const BadLine& each : cases) {
        runner->prints(line("octo/tools") + each.text + "\n" + line("octo/other"));
        EXPECT_EQ(pathOf([this] { repositories(); }), each.path) << each.name;
    }
}

}  // namespace
