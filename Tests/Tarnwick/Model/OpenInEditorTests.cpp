#include "Tarnwick/Model/OpenInEditor.h"

#include "Fakes/ModelFixture.h"

#include <QCoreApplication>
#include <QFile>

namespace {

using namespace TestSupport;
using namespace std::string_literals;

/// From a row to the editor, with the project folder that the user has set.
class OpenInEditor : public ModelTest {
protected:
    OpenInEditor() { start(); }

    std::string projects() const { return folder.path().toStdString() + "/projects"; }

    /// A clone in the project directory that the user has set.
    void haveClone() const
    {
        std::filesystem::create_directories(projects() + "/tools");
        model->setProjectDirectory(projects());
    }

    std::optional<std::string> open(const PullRequest& pullRequest)
    {
        return valueOf(model->openInEditor(pullRequest, desktop.progress()));
    }

    std::optional<std::string> open() { return open(makePullRequest(7, "feature/login", "main")); }
};

TEST_F(OpenInEditor, opensTheWorktreeOfTheHeadBranchInTheClone)
{
    haveClone();
    desktop.ends(0);
    desktop.ends(0, "worktree /trees/login\0branch refs/heads/feature/login\0\0"s);
    desktop.ends(0);
    EXPECT_EQ(open(), std::nullopt);
    EXPECT_EQ(desktop.journal().front(), "progress Fetching origin…");
    EXPECT_EQ(
        desktop.journal()[1], "run /usr/bin/git [-C] [" + projects() + "/tools] [fetch] [origin]");
    EXPECT_EQ(desktop.journal().back(), "run /usr/bin/code [--new-window] [/trees/login]");
}

TEST_F(OpenInEditor, asksForTheProjectDirectoryWhenNoneIsSet)
{
    EXPECT_EQ(open(), "Open Menu > Repositories and set Project Directory first.");
    model->setProjectDirectory(" \n\t");
    EXPECT_EQ(open(), "Open Menu > Repositories and set Project Directory first.");
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(OpenInEditor, saysWhereTheCloneIsMissing)
{
    model->setProjectDirectory("/nonexistent/projects");
    EXPECT_EQ(
        open(),
        "The repository directory does not exist at /nonexistent/projects/tools. Open Menu > "
        "Repositories and set Project Directory first.");
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(OpenInEditor, takesAFileForNoClone)
{
    std::filesystem::create_directories(projects());
    QFile file(QString::fromStdString(projects() + "/tools"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    model->setProjectDirectory(projects());
    EXPECT_EQ(
        open(),
        "The repository directory does not exist at " + projects()
            + "/tools. Open Menu > Repositories and set Project Directory first.");
}

TEST_F(OpenInEditor, takesNoRepositoryThatLeadsOutOfTheProjectDirectory)
{
    haveClone();
    auto pullRequest = makePullRequest(7);
    pullRequest.id.repository = "octo/..";
    EXPECT_EQ(
        open(pullRequest),
        "The repository directory does not exist at " + projects()
            + "/... Open Menu > Repositories and set Project Directory first.");
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(OpenInEditor, yieldsWhatGitSaid)
{
    haveClone();
    model->setProjectDirectory(" " + projects() + "/\n");
    desktop.ends(128, {}, "fatal: offline\n");
    EXPECT_EQ(open(), "Fetching origin failed (exit 128).\nfatal: offline");
    EXPECT_EQ(
        desktop.journal().back(),
        "run /usr/bin/git [-C] [" + projects() + "/tools] [fetch] [origin]");
}

TEST_F(OpenInEditor, yieldsTheRunnersOwnErrors)
{
    haveClone();
    desktop.fails(std::make_exception_ptr(ProviderError("GitHub CLI request timed out.")));
    EXPECT_EQ(open(), "GitHub CLI request timed out.");
}

TEST_F(OpenInEditor, saysThatThereIsNoHeadBranch)
{
    haveClone();
    EXPECT_EQ(open(makePullRequest(7, "", "main")), "The pull request has no head branch.");
}

TEST_F(OpenInEditor, endsQuietlyWhenTheModelGoes)
{
    haveClone();
    // The worker waits until the model is gone.
    desktop.meanwhile([this] {
        QMetaObject::invokeMethod(qApp, [this] { model.reset(); }, Qt::BlockingQueuedConnection);
    });
    EXPECT_EQ(open(), std::nullopt);
    EXPECT_EQ(model, nullptr);
    EXPECT_THAT(
        desktop.journal(),
        ElementsAre(
            "progress Fetching origin…",
            "run /usr/bin/git [-C] [" + projects() + "/tools] [fetch] [origin]"));
}

TEST(ProjectFolder, isTheTextWithoutWhiteSpaceAndSlashesAtItsEnds)
{
    EXPECT_EQ(projectFolder("  /home/octo/my projects/\n"), "/home/octo/my projects");
    EXPECT_EQ(projectFolder("/"), "/");
    EXPECT_EQ(projectFolder(" \n "), "");
}

TEST(ProjectFolder, hasTheHomeFolderInPlaceOfATilde)
{
    const std::string home = qgetenv("HOME").toStdString();
    ASSERT_FALSE(home.empty());
    EXPECT_EQ(projectFolder("~"), home);
    EXPECT_EQ(projectFolder("~/Projects"), home + "/Projects");
    EXPECT_EQ(projectFolder("~root/src"), "/root/src");
    EXPECT_EQ(projectFolder("/a/~/b"), "/a/~/b");
}

TEST(ProjectFolder, isAbsolute)
{
    EXPECT_EQ(projectFolder("src"), std::filesystem::current_path() / "src");
    EXPECT_EQ(
        projectFolder("~nobody-of-this-name/src"),
        std::filesystem::current_path() / "~nobody-of-this-name/src");
}

}  // namespace
