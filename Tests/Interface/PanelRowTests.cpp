#include "PanelFixture.h"

namespace Tarnwick {
namespace {

using namespace TestSupport;

class PanelRowTests : public PanelTest {
protected:
    /// Opens the first row in an editor, which fails.
    void failToEdit()
    {
        press(Qt::Key_Home);
        QTest::keyClick(&list(), Qt::Key_E, Qt::ControlModifier);
        ASSERT_TRUE(eventually([this] { return shows("editorError"); }));
    }
};

TEST_F(PanelRowTests, theListHasTheFocusAndReturnOpensWhichIsAVisit)
{
    showList({makePullRequest(1)});
    EXPECT_TRUE(list().hasFocus());
    press(Qt::Key_Home);
    press(Qt::Key_Return);
    const auto url = QStringLiteral("https://github.com/octo/tools/pull/");
    EXPECT_THAT(desktop.journal(), Contains(HasSubstr(url.toStdString())));
    EXPECT_THAT(desktop.journal(), Contains(HasSubstr("dismiss")));
    EXPECT_EQ(model->visits().lastVisited(makePullRequest(1).id), clock->now());
}

TEST_F(PanelRowTests, aRowCanBeOpenedWhileThePanelStays)
{
    showList({makePullRequest(1), makePullRequest(2)});
    press(Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_THAT(desktop.journal(), Contains(HasSubstr("/octo/tools/pull/")));
    EXPECT_THAT(desktop.journal(), Not(Contains(HasSubstr("dismiss"))));
    EXPECT_TRUE(view->keepsOpen()) << "when the browser takes the focus";
    EXPECT_THAT(rows(), 2);
    QEvent activation(QEvent::ActivationChange);
    QApplication::sendEvent(view.get(), &activation);
    ASSERT_TRUE(view->isActiveWindow());
    EXPECT_FALSE(view->keepsOpen()) << "once the user is back";
    press(Qt::Key_Return);
    EXPECT_THAT(desktop.journal(), Contains(HasSubstr("dismiss")));
}

TEST_F(PanelRowTests, theMenuKeyIsTheRowsOrElseTheOptions)
{
    showList({makePullRequest(1)});
    auto* const options = part<QMenu>("optionsMenu");
    press(Qt::Key_Menu);
    EXPECT_TRUE(options->isVisible());
    options->close();
    press(Qt::Key_Home);
    press(Qt::Key_Menu);
    EXPECT_FALSE(options->isVisible());
    ASSERT_NE(part<QMenu>("rowMenu"), nullptr);
    EXPECT_TRUE(part<QMenu>("rowMenu")->isVisible());
    part<QMenu>("rowMenu")->close();
}

TEST_F(PanelRowTests, aRowThatWasOpenedAndHasChangedIsNewAgainUntilItIsRead)
{
    auto pullRequest = makePullRequest(1);
    pullRequest.checks = {4, 4, 0};
    showList({pullRequest});
    const auto description = [this] {
        return list().model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString();
    };
    const auto mark = [this](const char* text) {
        press(Qt::Key_Home);
        press(Qt::Key_Menu);
        QAction* const action = actionOf(*part<QMenu>("rowMenu"), text);
        ASSERT_NE(action, nullptr) << text;
        action->trigger();
        delete part<QMenu>("rowMenu");
    };
    press(Qt::Key_Home);
    press(Qt::Key_Return);
    EXPECT_FALSE(description().contains(QStringLiteral("Since")));

    pullRequest.checks = {2, 4, 1};
    provider->setPullRequests({pullRequest});
    clock->advance(std::chrono::minutes(1));
    refresh();
    EXPECT_TRUE(description().contains(QStringLiteral(": checks from 4/4 to 2/4. ")))
        << description().toStdString();
    mark("Mark as Read");
    EXPECT_FALSE(description().contains(QStringLiteral("Since")));
    mark("Mark as Unread");
    EXPECT_FALSE(model->visits().isVisited(pullRequest));
    mark("Mark as Read");
    EXPECT_TRUE(model->visits().isVisited(pullRequest));
}

TEST_F(PanelRowTests, filesAndChecksAreOpenedInPlaceOfThePanelAndCountAsAVisit)
{
    auto pullRequest = makePullRequest(1);
    pullRequest.checks = {1, 1, 0};
    showList({pullRequest, makePullRequest(2)});
    for (const char* const item : {"Open Files", "Open Checks"}) {
        press(Qt::Key_Home);
        press(Qt::Key_Menu);
        EXPECT_FALSE(model->visits().isVisited(makePullRequest(2)));
        actionOf(*part<QMenu>("rowMenu"), item)->trigger();
        delete part<QMenu>("rowMenu");
        EXPECT_TRUE(model->visits().isVisited(pullRequest)) << item;
    }
    const std::string page = "launch /usr/bin/xdg-open [https://github.com/octo/tools/pull/1";
    EXPECT_THAT(
        desktop.journal(),
        ElementsAre(
            "dismiss any", page + "/files] token ", "dismiss any", page + "/checks] token "));
}

TEST_F(PanelRowTests, nothingBelowACardCanBeUsed)
{
    showList({makePullRequest(1)});
    model->setProjectDirectory("/nowhere");
    failToEdit();
    EXPECT_FALSE(list().isEnabled());
    EXPECT_TRUE(view->keepsOpen());
    press(Qt::Key_Return);
    EXPECT_FALSE(shows("editorError"));
    EXPECT_TRUE(list().isEnabled());
    EXPECT_TRUE(list().hasFocus());
    EXPECT_FALSE(view->keepsOpen());
}

TEST_F(PanelRowTests, anEditorThatFailsAsksForThePanelToBeShown)
{
    showList({makePullRequest(1)});
    const QSignalSpy asked(view.get(), &PullRequestMenuView::attentionRequested);
    failToEdit();
    EXPECT_EQ(asked.count(), 1);
    press(Qt::Key_Return);
    EXPECT_EQ(asked.count(), 1);
}

TEST_F(PanelRowTests, aMissingFolderLeadsToTheFieldOfTheProjectDirectory)
{
    showList({makePullRequest(1)});
    model->setProjectDirectory("/nowhere");
    failToEdit();
    part<QWidget>("editorError")
        ->findChild<QAbstractButton*>(QStringLiteral("alertOther"))
        ->click();
    EXPECT_FALSE(shows("editorError"));
    EXPECT_TRUE(shows("repositoryPicker"));
    auto* const field = qobject_cast<QLineEdit*>(view->focusWidget());
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->objectName(), QStringLiteral("projectDirectory"));
    EXPECT_EQ(field->selectedText(), QStringLiteral("/nowhere"));
}

}  // namespace
}  // namespace Tarnwick
