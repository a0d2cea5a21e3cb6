#include "Tarnwick/Desktop/EditorWorktree.h"

#include "Fakes/EventLoop.h"
#include "Fakes/RecordingSurroundings.h"
#include "PullRequestKit/Errors.h"
#include "Support/Errors.h"
#include "Tarnwick/ExternalNavigationError.h"

namespace {

using namespace TestSupport;
using namespace std::string_literals;

class EditorWorktreeTest : public testing::Test {
protected:
    std::filesystem::path prepare(
        const std::string& branch, const std::string& clone = "/home/octo/projects/api")
    {
        return valueOf(EditorWorktree::prepare(
            clone, branch, desktop.runner(), desktop.progress(), stop.get_token()));
    }

    /// How the next programs end.
    void endWith(std::initializer_list<std::int32_t> statuses)
    {
        for (const std::int32_t status : statuses) {
            desktop.ends(status);
        }
    }

    std::string messageOf(const std::string& branch)
    {
        return TestSupport::messageOf<ExternalNavigationError>([&] { prepare(branch); });
    }

    RecordingSurroundings desktop;
    std::stop_source stop;
};

TEST_F(EditorWorktreeTest, isMadeFromTheLocalBranchWhereThereIsOne)
{
    endWith({0, 0, 0, 0});
    EXPECT_EQ(
        prepare("feature/login"), "/home/octo/projects/.tarnwick-worktrees/api/feature-login");
    EXPECT_THAT(
        desktop.journal(),
        ElementsAre(
            "progress Fetching origin…",
            "run /usr/bin/git [-C] [/home/octo/projects/api] [fetch] [origin]",
            "progress Looking for an existing worktree…",
            "run /usr/bin/git [-C] [/home/octo/projects/api] [worktree] [list] [--porcelain] [-z]",
            "progress Checking the local branch…",
            "run /usr/bin/git [-C] [/home/octo/projects/api] [show-ref] [--verify] [--quiet] "
            "[refs/heads/feature/login]",
            "progress Creating the worktree…",
            "run /usr/bin/git [-C] [/home/octo/projects/api] [worktree] [add] [--] "
            "[/home/octo/projects/.tarnwick-worktrees/api/feature-login] [feature/login]"));
}

TEST_F(EditorWorktreeTest, isMadeWithABranchFromOriginsWhereThereIsNone)
{
    endWith({0, 0, 1, 0});
    EXPECT_EQ(prepare("a/b/c"), "/home/octo/projects/.tarnwick-worktrees/api/a-b-c");
    EXPECT_EQ(
        desktop.journal().back(),
        "run /usr/bin/git [-C] [/home/octo/projects/api] [worktree] [add] [-b] [a/b/c] [--] "
        "[/home/octo/projects/.tarnwick-worktrees/api/a-b-c] [origin/a/b/c]");
}

TEST_F(EditorWorktreeTest, isReusedWithoutFurtherCommandsWhereThereIsOneOnTheBranch)
{
    desktop.ends(0);
    desktop.ends(
        0,
        "worktree /home/octo/projects/api\0HEAD 1111\0branch refs/heads/main\0\0"
        "worktree /home/octo/elsewhere/login tree\0HEAD 2222\0branch refs/heads/feature/login\0\0"s);
    EXPECT_EQ(prepare("feature/login"), "/home/octo/elsewhere/login tree");
    EXPECT_EQ(desktop.journal().size(), 4U);
    EXPECT_EQ(desktop.journal()[2], "progress Looking for an existing worktree…");
}

TEST_F(EditorWorktreeTest, failsWithoutARunWhenThereIsNoHeadBranch)
{
    EXPECT_EQ(messageOf(""), "The pull request has no head branch.");
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(EditorWorktreeTest, failsWithoutARunWhenTheBranchWouldBeAnOption)
{
    EXPECT_EQ(
        messageOf("--force"),
        "The pull request's head branch begins with \"-\", so git would read it as an option.");
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(EditorWorktreeTest, endsAtAFailedFetchWithGitsOwnWords)
{
    desktop.ends(128, "not part of it", "\n fatal: could not read from remote repository.\n\n");
    EXPECT_EQ(
        messageOf("main"),
        "Fetching origin failed (exit 128).\nfatal: could not read from remote repository.");
    EXPECT_EQ(desktop.journal().size(), 2U);
}

TEST_F(EditorWorktreeTest, saysWhatToDoWhenAFetchMayHaveFailedForWantOfAnAnswer)
{
    const std::string advice =
        "\nTarnwick cannot ask for a password or confirm a host key. Run `git -C "
        "/home/octo/projects/api fetch origin` in a terminal first.";
    for (const std::string said :
         {"fatal: could not read Username for 'https://git.example.org': terminal prompts disabled",
          "Host key verification failed.\nfatal: Could not read from remote repository.",
          "git@git.example.org: Permission denied (publickey,password).\nfatal: Could not read"}) {
        desktop.ends(128, {}, said);
        EXPECT_EQ(messageOf("main"), "Fetching origin failed (exit 128).\n" + said + advice);
    }
}

TEST_F(EditorWorktreeTest, endsAtAFailedListing)
{
    desktop.ends(0);
    desktop.ends(129, {}, "error: unknown switch `z'");
    EXPECT_EQ(messageOf("main"), "Listing worktrees failed (exit 129).\nerror: unknown switch `z'");
}

TEST_F(EditorWorktreeTest, endsWhenTheLocalBranchCannotBeCheckedFor)
{
    desktop.ends(0);
    desktop.ends(0);
    desktop.ends(128, {}, "fatal: not a git repository\n");
    EXPECT_EQ(
        messageOf("main"),
        "Checking the local branch failed (exit 128).\nfatal: not a git repository");
    EXPECT_EQ(desktop.journal().size(), 6U);
}

TEST_F(EditorWorktreeTest, endsWhenGitDoesNotMakeIt)
{
    endWith({0, 0, 1, 128});
    EXPECT_EQ(messageOf("main"), "Creating the worktree failed (exit 128).");
}

TEST_F(EditorWorktreeTest, passesOnTheRunnersOwnErrors)
{
    desktop.fails(std::make_exception_ptr(ProviderError("GitHub CLI request timed out.")));
    EXPECT_THROW(prepare("main"), ProviderError);
}

TEST_F(EditorWorktreeTest, startsNoFurtherCommandOnceItIsStopped)
{
    desktop.meanwhile([this] { stop.request_stop(); });
    EXPECT_THROW(prepare("main"), CancellationError);
    EXPECT_EQ(desktop.journal().size(), 2U);
}

TEST(EditorWorktreeCheck, acceptsStatusZeroWhateverWasPrinted)
{
    EXPECT_NO_THROW(EditorWorktree::check({0, "out", "warning"}, "Fetching origin"));
}

TEST(EditorWorktreeCheck, repairsWhatIsNoUtf8)
{
    EXPECT_EQ(
        messageOf<ExternalNavigationError>(
            [] { EditorWorktree::check({1, {}, "bad \xff byte"}, "Fetching origin"); }),
        "Fetching origin failed (exit 1).\nbad \xef\xbf\xbd byte");
}

TEST(ExistingWorktree, isNeverADetachedOne)
{
    EXPECT_EQ(
        EditorWorktree::existingWorktree("worktree /a\0HEAD 1111\0detached\0\0"s, "detached"),
        std::nullopt);
}

TEST(ExistingWorktree, isFoundByTheWholeNameOfItsBranch)
{
    const std::string listing =
        "worktree /a\0branch refs/heads/main-2\0\0worktree /b\0branch refs/heads/main\0\0"s;
    EXPECT_EQ(EditorWorktree::existingWorktree(listing, "main"), "/b");
    EXPECT_EQ(EditorWorktree::existingWorktree(listing, "mai"), std::nullopt);
    EXPECT_EQ(EditorWorktree::existingWorktree(listing, "Main"), std::nullopt);
}

TEST(ExistingWorktree, needsAPathBeforeTheBranch)
{
    EXPECT_EQ(
        EditorWorktree::existingWorktree(
            "branch refs/heads/main\0worktree /a\0branch refs/heads/main\0"s, "main"),
        "/a");
    EXPECT_EQ(EditorWorktree::existingWorktree("branch refs/heads/main\0"s, "main"), std::nullopt);
}

TEST(ExistingWorktree, mayHaveALineBreakInItsPath)
{
    EXPECT_EQ(
        EditorWorktree::existingWorktree("worktree /a\nb\0branch refs/heads/main\0"s, "main"),
        "/a\nb");
}

}  // namespace
