#include "Desktop/GitClone.h"
#include "Fakes/EventLoop.h"
#include "PullRequestKit/Errors.h"
#include "Support/BootTimers.h"
#include "Support/Errors.h"
#include "Tarnwick/ExternalNavigation.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QTimer>

#include <fstream>

#include <unistd.h>

namespace {

using namespace TestSupport;

namespace fs = std::filesystem;

/// The whole way with the real git and a `code` that writes down how it was called.
class EditorWorktreeGit : public testing::Test {
protected:
    EditorWorktreeGit() { writeCode("printf '%s\\n' \"$@\" >> '" + codeCalls().string() + "'"); }

    fs::path codeCalls() const { return git.folder() / "code-calls"; }

    void writeCode(const std::string& body) const
    {
        const fs::path code = git.folder() / "bin/code";
        fs::create_directories(code.parent_path());
        std::ofstream(code) << "#!/bin/sh\n" << body << "\n";
        fs::permissions(code, fs::perms::owner_all);
    }

    std::vector<std::string> codeArguments() const
    {
        std::ifstream file(codeCalls());
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);) {
            lines.push_back(line);
        }
        return lines;
    }

    void open(const std::string& branch)
    {
        auto surroundings = ExternalNavigation::desktop(
            {{"HOME", git.folder().string()}, {"PATH", (git.folder() / "bin").string()}},
            [](PanelSearch /*search*/) {});
        surroundings.isExecutable = [own = git.folder() / "bin/code"](const fs::path& path) {
            return path == own;
        };
        const ExternalNavigation navigation(std::move(surroundings));
        auto opening = navigation.openInCode(
            git.clone(),
            branch,
            [this](const std::string& text) { progress.push_back(text); },
            stop.get_token());
        runToEnd(std::move(opening));
    }

    std::string messageOf(const std::string& branch)
    {
        return TestSupport::messageOf<ExternalNavigationError>([&] { open(branch); });
    }

    /// The names that lie below the folder of worktrees.
    std::vector<std::string> made() const
    {
        std::vector<std::string> names;
        if (fs::exists(git.worktrees())) {
            for (const auto& entry : fs::directory_iterator(git.worktrees())) {
                names.push_back(entry.path().filename().string());
            }
        }
        return names;
    }

    GitClone git;
    std::vector<std::string> progress;
    std::stop_source stop;
};

TEST_F(EditorWorktreeGit, makesABranchFromOriginsAndOpensIt)
{
    open("feature/login");
    const fs::path tree = git.worktrees() / "feature-login";
    EXPECT_EQ(git.branchIn(tree), "feature/login");
    EXPECT_EQ(
        git.git({"rev-parse", "--abbrev-ref", "feature/login@{upstream}"}), "origin/feature/login");
    EXPECT_THAT(codeArguments(), ElementsAre("--new-window", tree.string()));
    EXPECT_THAT(
        progress,
        ElementsAre(
            "Fetching origin…",
            "Looking for an existing worktree…",
            "Checking the local branch…",
            "Creating the worktree…",
            "Opening Visual Studio Code…"));
}

TEST_F(EditorWorktreeGit, replacesEverySlashInTheFoldersName)
{
    open("a/b/c");
    EXPECT_THAT(made(), ElementsAre("a-b-c"));
    EXPECT_EQ(git.branchIn(git.worktrees() / "a-b-c"), "a/b/c");
}

TEST_F(EditorWorktreeGit, findsABranchThatOriginGotMeanwhile)
{
    git.git({"push", "--quiet", "origin", "main:refs/heads/late"});
    git.git({"update-ref", "-d", "refs/remotes/origin/late"});
    open("late");
    EXPECT_EQ(git.branchIn(git.worktrees() / "late"), "late");
}

TEST_F(EditorWorktreeGit, takesTheLocalBranchAsItIs)
{
    git.git({"branch", "local-only"});
    open("local-only");
    EXPECT_EQ(git.branchIn(git.worktrees() / "local-only"), "local-only");
    git.git({"branch", "a/b/c", "main"});
    git.git({"commit", "--quiet", "--allow-empty", "--message=More"});
    git.git({"push", "--quiet", "--force", "origin", "HEAD:a/b/c"});
    open("a/b/c");
    EXPECT_EQ(git.git({"rev-parse", "a/b/c"}), git.git({"rev-parse", "main~1"}));
}

TEST_F(EditorWorktreeGit, opensTheOneItMadeBefore)
{
    open("feature/login");
    progress.clear();
    open("feature/login");
    EXPECT_THAT(
        progress,
        ElementsAre(
            "Fetching origin…",
            "Looking for an existing worktree…",
            "Opening Visual Studio Code…"));
    EXPECT_EQ(codeArguments().size(), 4U);
    EXPECT_THAT(made(), ElementsAre("feature-login"));
}

TEST_F(EditorWorktreeGit, opensOneThatTheUserMadeElsewhere)
{
    const fs::path elsewhere = git.folder() / "my trees" / "login";
    git.git({"worktree", "add", "--quiet", elsewhere.string(), "feature/login"});
    open("feature/login");
    EXPECT_THAT(codeArguments(), ElementsAre("--new-window", elsewhere.string()));
    EXPECT_THAT(made(), IsEmpty());
}

TEST_F(EditorWorktreeGit, opensTheCloneItselfWhenTheBranchIsCheckedOutThere)
{
    open("main");
    EXPECT_THAT(codeArguments(), ElementsAre("--new-window", git.clone().string()));
}

TEST_F(EditorWorktreeGit, doesNotTakeADetachedWorktreeForTheBranchs)
{
    const fs::path detached = git.folder() / "detached";
    git.git({"worktree", "add", "--quiet", "--detach", detached.string(), "origin/a/b/c"});
    open("a/b/c");
    EXPECT_THAT(codeArguments(), ElementsAre("--new-window", (git.worktrees() / "a-b-c").string()));
}

TEST_F(EditorWorktreeGit, failsWithGitsWordsWhenAnotherBranchHasTheFolder)
{
    git.git({"branch", "a-b-c"});
    open("a-b-c");
    const std::string message = messageOf("a/b/c");
    EXPECT_THAT(message, StartsWith("Creating the worktree failed (exit 128).\n"));
    EXPECT_THAT(message, HasSubstr("already exists"));
    EXPECT_EQ(git.branchIn(git.worktrees() / "a-b-c"), "a-b-c");
}

TEST_F(EditorWorktreeGit, leavesAFolderOfTheUsersInTheWayAsItIs)
{
    fs::create_directories(git.worktrees() / "feature-login");
    std::ofstream(git.worktrees() / "feature-login" / "notes") << "mine";
    EXPECT_THAT(
        messageOf("feature/login"), StartsWith("Creating the worktree failed (exit 128).\n"));
    EXPECT_TRUE(fs::exists(git.worktrees() / "feature-login" / "notes"));
    EXPECT_THAT(codeArguments(), IsEmpty());
}

TEST_F(EditorWorktreeGit, stopsAtAFetchThatFails)
{
    fs::rename(git.origin(), git.folder() / "gone.git");
    EXPECT_THAT(
        messageOf("feature/login"), StartsWith("Fetching origin failed (exit 128).\nfatal: "));
    EXPECT_THAT(progress, ElementsAre("Fetching origin…"));
    EXPECT_THAT(made(), IsEmpty());
}

TEST_F(EditorWorktreeGit, failsInAFolderThatIsNoClone)
{
    fs::remove_all(git.clone() / ".git");
    EXPECT_THAT(
        messageOf("feature/login"), StartsWith("Fetching origin failed (exit 128).\nfatal: "));
}

TEST_F(EditorWorktreeGit, failsWhenNobodyHasTheBranch)
{
    const std::string message = messageOf("nowhere");
    EXPECT_THAT(message, StartsWith("Creating the worktree failed (exit "));
    EXPECT_THAT(message, HasSubstr("fatal: "));
    EXPECT_THAT(made(), IsEmpty());
}

TEST_F(EditorWorktreeGit, keepsTheWorktreeWhenTheEditorFails)
{
    writeCode("echo 'cannot start' >&2; exit 7");
    EXPECT_EQ(
        messageOf("feature/login"), "Opening Visual Studio Code failed (exit 7).\ncannot start");
    EXPECT_THAT(made(), ElementsAre("feature-login"));
}

TEST_F(EditorWorktreeGit, endsACommandThatRunsWhenItIsStopped)
{
    // The other side says nothing for as long as git waits for it.
    git.git({"config", "remote.origin.uploadpack", "cat > /dev/null; true"});
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { stop.request_stop(); }, Qt::QueuedConnection);
    EXPECT_THROW(open("feature/login"), CancellationError);
    EXPECT_THAT(progress, ElementsAre("Fetching origin…"));
}

TEST_F(EditorWorktreeGit, givesTheEditorsCommand30Seconds)
{
    writeCode("echo called > '" + codeCalls().string() + "'; exec tail -f /dev/null");
    std::vector<int> seconds;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (fs::exists(codeCalls()) && !stop.stop_requested()) {
            seconds = secondsOfBootTimers(::getpid());
            stop.request_stop();
        }
    });
    look.start(2);
    EXPECT_THROW(open("feature/login"), CancellationError);
    EXPECT_THAT(seconds, ElementsAre(AllOf(Ge(20), Lt(30))));
}

/// What GitHub calls a branch is a stranger's text.
class HostileBranch
    : public EditorWorktreeGit
    , public testing::WithParamInterface<std::string> {};

TEST_P(HostileBranch, makesNothingAndOpensNothing)
{
    const std::string before = git.git({"for-each-ref"});
    EXPECT_THAT(
        messageOf(GetParam()),
        AnyOf(
            HasSubstr(" failed (exit "),
            "The pull request's head branch begins with \"-\", so git would read it as an "
            "option."));
    EXPECT_EQ(git.git({"for-each-ref"}), before);
    EXPECT_EQ(git.branchIn(git.clone()), "main");
    EXPECT_THAT(made(), IsEmpty());
    EXPECT_FALSE(fs::exists("pwned") || fs::exists(git.clone() / "pwned"));
    EXPECT_THAT(codeArguments(), IsEmpty());
    EXPECT_EQ(git.git({"worktree", "list"}).find('\n'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Names,
    HostileBranch,
    testing::Values(
        "-b",
        "-m",
        "-D",
        "--force",
        "--upload-pack=touch pwned",
        "-",
        ".",
        "..",
        "../..",
        "../../../pwned",
        "a..b",
        "a\nb",
        "a\tb",
        "a\x1b[31mb",
        "a b",
        "@",
        "@{-1}",
        "HEAD",
        "main^",
        "main:x",
        "$(touch pwned)",
        "*",
        "/",
        "refs/heads/main"));

TEST_F(EditorWorktreeGit, refusesABranchWithANullCharacter)
{
    EXPECT_ANY_THROW(open(std::string("a\0b", 3)));
    EXPECT_THAT(made(), IsEmpty());
}

}  // namespace
