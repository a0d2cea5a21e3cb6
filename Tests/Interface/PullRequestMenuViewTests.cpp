#include "PanelFixture.h"

namespace Tarnwick {
namespace {

using namespace TestSupport;

class PullRequestMenuViewTests : public PanelTest {};

TEST_F(PullRequestMenuViewTests, startsWithTheLogin)
{
    start();
    showView();
    EXPECT_TRUE(shows("notice"));
    EXPECT_EQ(textOf("noticeTitle"), "Checking GitHub CLI authentication…");
    EXPECT_TRUE(shows("noticeSpinner"));
    EXPECT_FALSE(shows("tryAgain"));
    EXPECT_EQ(footer(), QString()) << "no list is known";
}

TEST_F(PullRequestMenuViewTests, showsWhatTheRefreshBrings)
{
    showList({makePullRequest(1), makePullRequest(2)});
    EXPECT_TRUE(list().isVisible());
    EXPECT_EQ(rows(), 2);
    EXPECT_THAT(footer().toStdString(), StartsWith("2 pull requests, Updated just now"));
}

TEST_F(PullRequestMenuViewTests, keepsTheRowsWhileTheyAreLoadedAnew)
{
    showList({makePullRequest(1)});
    openAndHold();
    EXPECT_TRUE(list().isVisible());
    EXPECT_TRUE(shows("refreshing"));
    releaseAndSettle();
    EXPECT_FALSE(shows("refreshing"));
}

TEST_F(PullRequestMenuViewTests, signedOutOffersTheCommand)
{
    provider->setStatus(NotAuthenticated{"GitHub CLI is not logged in."});
    startAndRefresh();
    showView();
    EXPECT_EQ(textOf("noticeTitle"), "Sign in to GitHub");
    EXPECT_EQ(textOf("noticeMessage"), "GitHub CLI is not logged in.");
    EXPECT_EQ(textOf("noticeHint"), "Run `gh auth login` in Terminal, then try again.");
    auto* const copy = part<QAbstractButton>("copyLogin");
    EXPECT_EQ(copy->text(), QStringLiteral("Copy gh auth login"));
    copy->click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("gh auth login"));

    provider->setStatus(Authenticated{"octo"});
    part<QAbstractButton>("tryAgain")->click();
    ASSERT_TRUE(settle());
    EXPECT_FALSE(shows("noticeHint"));
}

TEST_F(PullRequestMenuViewTests, aFailureCanBeTriedAgain)
{
    provider->setError("error connecting to api.github.com");
    selectTools();
    startAndRefresh();
    showView();
    EXPECT_EQ(textOf("noticeTitle"), "error connecting to api.github.com");
    provider->setError({});
    provider->setPullRequests({makePullRequest(1)});
    part<QAbstractButton>("tryAgain")->click();
    ASSERT_TRUE(settle());
    EXPECT_TRUE(list().isVisible());
}

TEST_F(PullRequestMenuViewTests, afterTryAgainInTheInfoBarTheListHasTheFocus)
{
    showList({makePullRequest(1)});
    provider->setError("error connecting to api.github.com");
    refresh();
    auto* const again = part<QAbstractButton>("refreshErrorAction");
    ASSERT_TRUE(again->isVisible());
    provider->setError({});
    again->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_TRUE(list().hasFocus());
    ASSERT_TRUE(settle());
    EXPECT_TRUE(eventually([this] { return !shows("refreshError"); }));
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, anInfoBarThatGoesWithTheFocusGivesItToTheList)
{
    showList({makePullRequest(1)});
    provider->setError("error connecting to api.github.com");
    refresh();
    part<QAbstractButton>("refreshErrorAction")->setFocus(Qt::TabFocusReason);
    provider->setError({});
    refresh();
    EXPECT_TRUE(eventually([this] { return !shows("refreshError"); }));
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, theListHasTheFocusWhenItsRowsComeLater)
{
    provider->setPullRequests({makePullRequest(1)});
    selectTools();
    start();
    showView();
    EXPECT_TRUE(part<QWidget>("notice")->hasFocus());
    refresh();
    processEvents();
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, keysReachTheirOperations)
{
    showList({makePullRequest(1)});
    const int calls = provider->statusCalls();
    press(Qt::Key_R);
    ASSERT_TRUE(settle());
    EXPECT_EQ(provider->statusCalls(), calls + 1);

    press(Qt::Key_Comma);
    auto* const menu = part<QMenu>("optionsMenu");
    EXPECT_TRUE(menu->isVisible());
    EXPECT_EQ(menu->activeAction()->text(), QStringLiteral("Reload"));
    EXPECT_TRUE(view->keepsOpen());
    menu->close();
    EXPECT_FALSE(view->keepsOpen());

    const QSignalSpy closes(view.get(), &PullRequestMenuView::closeRequested);
    press(Qt::Key_Escape);
    EXPECT_EQ(closes.count(), 1);
}

TEST_F(PullRequestMenuViewTests, tabGoesThroughHeaderListAndFindsItsWayBack)
{
    showList({makePullRequest(1)});
    std::vector<std::string> stops;
    for (int press = 0; press < 4; ++press) {
        QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
        stops.push_back(view->focusWidget()->objectName().toStdString());
    }
    EXPECT_THAT(stops, ElementsAre("brand", "find", "options", list().objectName().toStdString()));
}

TEST_F(PullRequestMenuViewTests, aCardClosesTheMenuThatItWouldBeBehind)
{
    showList({makePullRequest(1)});
    notifier->isGranted = false;
    press(Qt::Key_Comma);
    ASSERT_TRUE(part<QMenu>("optionsMenu")->isVisible());
    model->toggleNewPullRequestNotifications();
    ASSERT_TRUE(eventually([this] { return shows("notificationsDisabled"); }));
    EXPECT_FALSE(part<QMenu>("optionsMenu")->isVisible());
    EXPECT_TRUE(part<QWidget>("notificationsDisabled")->isAncestorOf(view->focusWidget()));
}

TEST_F(PullRequestMenuViewTests, closingIsExplainedAndThenConfirmed)
{
    showList({makePullRequest(1)});
    const QSignalSpy confirmed(view.get(), &PullRequestMenuView::closingConfirmed);
    EXPECT_TRUE(view->explainClosing());
    EXPECT_TRUE(shows("closing"));
    EXPECT_FALSE(view->explainClosing());
    EXPECT_TRUE(view->keepsOpen());
    press(Qt::Key_Return);
    EXPECT_EQ(confirmed.count(), 1);
    EXPECT_FALSE(shows("closing"));
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, escapeKeepsTheWindowThatWasToBeClosed)
{
    showList({makePullRequest(1)});
    actionOfMenu("Repositories")->trigger();
    const QSignalSpy confirmed(view.get(), &PullRequestMenuView::closingConfirmed);
    const QSignalSpy quits(view.get(), &PullRequestMenuView::quitRequested);
    EXPECT_TRUE(view->explainClosing());
    press(Qt::Key_Escape);
    EXPECT_FALSE(shows("closing"));
    EXPECT_EQ(confirmed.count(), 0);
    EXPECT_EQ(quits.count(), 0);
    view->explainClosing();
    part<QWidget>("closing")->findChild<QAbstractButton*>(QStringLiteral("alertOther"))->click();
    EXPECT_EQ(quits.count(), 1);
}

TEST_F(PullRequestMenuViewTests, theBrandLeadsToTheWebSite)
{
    start();
    showView();
    auto* const brand = part<QAbstractButton>("brand");
    EXPECT_EQ(brand->accessibleName(), QStringLiteral("Tarnwick"));
    EXPECT_EQ(brand->toolTip(), QStringLiteral("Open tarnwick.dev"));
    brand->click();
    EXPECT_THAT(desktop.journal(), Contains(HasSubstr("https://tarnwick.dev")));
}

TEST_F(PullRequestMenuViewTests, theMenuLeadsToTheRepositoriesAndDoneBack)
{
    showList({makePullRequest(1)});
    const int calls = provider->statusCalls();
    QAction* const repositories = actionOfMenu("Repositories");
    ASSERT_NE(repositories, nullptr);
    repositories->trigger();
    EXPECT_TRUE(shows("repositoryPicker"));
    EXPECT_FALSE(list().isVisible());
    EXPECT_TRUE(part<QWidget>("findRepository")->hasFocus());

    type("r,e");  // Keys of the list are text here.
    EXPECT_EQ(provider->statusCalls(), calls);
    EXPECT_EQ(part<QLineEdit>("findRepository")->text(), QStringLiteral("r,e"));

    part<QAbstractButton>("done")->click();
    EXPECT_FALSE(shows("repositoryPicker"));
    EXPECT_TRUE(list().isVisible());
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, escapeLeadsFromTheRepositoriesToTheListAndNotOut)
{
    showList({makePullRequest(1)});
    actionOfMenu("Repositories")->trigger();
    const QSignalSpy closes(view.get(), &PullRequestMenuView::closeRequested);
    press(Qt::Key_Escape);
    EXPECT_FALSE(shows("repositoryPicker"));
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(closes.count(), 0);
}

TEST_F(PullRequestMenuViewTests, withoutASelectionAButtonLeadsToTheRepositories)
{
    startAndRefresh();
    showView();
    EXPECT_EQ(textOf("noticeTitle"), "No pull requests involving you were found.");
    part<QAbstractButton>("chooseRepositories")->click();
    EXPECT_TRUE(shows("repositoryPicker"));
    EXPECT_FALSE(shows("notice"));
    part<QAbstractButton>("done")->click();
    EXPECT_TRUE(shows("notice"));
}

TEST_F(PullRequestMenuViewTests, thePanelOpensWhereItWasLeft)
{
    showList({makePullRequest(1)});
    actionOfMenu("Repositories")->trigger();
    view->panelHidden();
    view->hide();
    view->show();
    view->panelShown();
    EXPECT_TRUE(shows("repositoryPicker"));
    EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("findRepository"));
}

TEST_F(PullRequestMenuViewTests, aMenuThatTheMouseOpenedLeavesTheFocusInTheList)
{
    showList({makePullRequest(1)});
    auto* const options = part<QAbstractButton>("options");
    QTest::mouseClick(options, Qt::LeftButton);
    auto* const menu = part<QMenu>("optionsMenu");
    ASSERT_TRUE(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_FALSE(menu->isVisible());
    EXPECT_TRUE(list().hasFocus());
}

}  // namespace
}  // namespace Tarnwick
