#include "Tarnwick/PullRequestMenuView.h"

#include "Fakes/ModelFixture.h"
#include "Tarnwick/Interface/List/FindBar.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

namespace Tarnwick {
namespace {

using testing::ElementsAre;

class PullRequestMenuViewTests : public TestSupport::ModelTest {
protected:
    void showView()
    {
        view = std::make_unique<PullRequestMenuView>(*model);
        view->resize(440, 620);
        view->show();
        (void)QTest::qWaitForWindowActive(view.get());
        view->panelShown();
        TestSupport::processEvents();
    }

    /// A view of these pull requests of octo/tools.
    void showList(const std::vector<PullRequestKit::PullRequest>& pullRequests)
    {
        provider->setPullRequests(pullRequests);
        selectTools();
        start();
        refresh();
        showView();
    }

    template<typename Widget>
    Widget* part(const char* name) const
    {
        return view->findChild<Widget*>(QLatin1String(name));
    }

    QListView& list() const { return *view->findChild<QListView*>(); }

    bool shows(const char* name) const
    {
        const auto* const widget = part<QWidget>(name);
        return widget != nullptr && widget->isVisible();
    }

    void press(Qt::Key key) const { QTest::keyClick(view->focusWidget(), key); }

    void type(const char* text) const
    {
        QTest::keyClicks(view->focusWidget(), QLatin1String(text));
    }

    static QAction* actionOf(const QMenu& menu, const char* text)
    {
        for (QAction* const action : menu.actions()) {
            if (action->text() == QString::fromUtf8(text)) {
                return action;
            }
        }
        return nullptr;
    }

    QAction* actionOfMenu(const char* text) const
    {
        return actionOf(*part<QMenu>("optionsMenu"), text);
    }

    QString footer() const { return part<QWidget>("footer")->accessibleName(); }

    int rows() const { return list().model()->rowCount(); }

    std::unique_ptr<PullRequestMenuView> view;
};

TEST_F(PullRequestMenuViewTests, startsWithTheLogin)
{
    start();
    showView();
    EXPECT_TRUE(shows("notice"));
    EXPECT_EQ(
        part<QLabel>("noticeTitle")->text(), QStringLiteral("Checking GitHub CLI authentication…"));
    EXPECT_TRUE(shows("noticeSpinner"));
    EXPECT_FALSE(shows("tryAgain"));
    EXPECT_EQ(footer(), QString()) << "no list is known";
}

TEST_F(PullRequestMenuViewTests, showsWhatTheRefreshBrings)
{
    showList({TestSupport::makePullRequest(1), TestSupport::makePullRequest(2)});
    EXPECT_TRUE(list().isVisible());
    EXPECT_EQ(rows(), 2);
    EXPECT_THAT(footer().toStdString(), testing::StartsWith("2 pull requests, Updated just now"));
}

TEST_F(PullRequestMenuViewTests, keepsTheRowsWhileTheyAreLoadedAnew)
{
    showList({TestSupport::makePullRequest(1)});
    openAndHold();
    EXPECT_TRUE(list().isVisible());
    EXPECT_TRUE(shows("refreshing"));
    releaseAndSettle();
    EXPECT_FALSE(shows("refreshing"));
}

TEST_F(PullRequestMenuViewTests, signedOutOffersTheCommand)
{
    provider->setStatus(PullRequestKit::NotAuthenticated{"GitHub CLI is not logged in."});
    start();
    refresh();
    showView();
    EXPECT_EQ(part<QLabel>("noticeTitle")->text(), QStringLiteral("Sign in to GitHub"));
    EXPECT_EQ(
        part<QLabel>("noticeMessage")->text(), QStringLiteral("GitHub CLI is not logged in."));
    EXPECT_EQ(
        part<QLabel>("noticeHint")->text(),
        QStringLiteral("Run `gh auth login` in Terminal, then try again."));
    auto* const copy = part<QAbstractButton>("copyLogin");
    EXPECT_EQ(copy->text(), QStringLiteral("Copy gh auth login"));
    copy->click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("gh auth login"));

    provider->setStatus(PullRequestKit::Authenticated{"octo"});
    part<QAbstractButton>("tryAgain")->click();
    ASSERT_TRUE(settle());
    EXPECT_FALSE(shows("noticeHint"));
}

TEST_F(PullRequestMenuViewTests, aFailureCanBeTriedAgain)
{
    provider->setError("error connecting to api.github.com");
    selectTools();
    start();
    refresh();
    showView();
    EXPECT_EQ(
        part<QLabel>("noticeTitle")->text(), QStringLiteral("error connecting to api.github.com"));
    provider->setError({});
    provider->setPullRequests({TestSupport::makePullRequest(1)});
    part<QAbstractButton>("tryAgain")->click();
    ASSERT_TRUE(settle());
    EXPECT_TRUE(list().isVisible());
}

TEST_F(PullRequestMenuViewTests, afterTryAgainInTheStripTheListHasTheFocus)
{
    showList({TestSupport::makePullRequest(1)});
    provider->setError("error connecting to api.github.com");
    refresh();
    auto* const again = part<QAbstractButton>("refreshErrorAction");
    ASSERT_TRUE(again->isVisible());
    provider->setError({});
    again->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_TRUE(list().hasFocus());
    ASSERT_TRUE(settle());
    EXPECT_TRUE(TestSupport::eventually([this] { return !shows("refreshError"); }));
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, aStripThatGoesWithTheFocusGivesItToTheList)
{
    showList({TestSupport::makePullRequest(1)});
    provider->setError("error connecting to api.github.com");
    refresh();
    part<QAbstractButton>("refreshErrorAction")->setFocus(Qt::TabFocusReason);
    provider->setError({});
    refresh();
    EXPECT_TRUE(TestSupport::eventually([this] { return !shows("refreshError"); }));
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, theListHasTheFocusAndReturnOpens)
{
    showList({TestSupport::makePullRequest(1), TestSupport::makePullRequest(2)});
    EXPECT_TRUE(list().hasFocus());
    press(Qt::Key_Home);
    press(Qt::Key_Return);
    const auto url = QStringLiteral("https://github.com/octo/tools/pull/");
    EXPECT_THAT(desktop.journal(), testing::Contains(testing::HasSubstr(url.toStdString())));
    EXPECT_THAT(desktop.journal(), testing::Contains(testing::HasSubstr("dismiss")));
}

TEST_F(PullRequestMenuViewTests, theListHasTheFocusWhenItsRowsComeLater)
{
    provider->setPullRequests({TestSupport::makePullRequest(1)});
    selectTools();
    start();
    showView();
    EXPECT_TRUE(part<QWidget>("notice")->hasFocus());
    refresh();
    TestSupport::processEvents();
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, openingARowRecordsTheVisit)
{
    showList({TestSupport::makePullRequest(1)});
    EXPECT_FALSE(model->visits().lastVisited(TestSupport::makePullRequest(1).id));
    press(Qt::Key_Home);
    press(Qt::Key_Return);
    EXPECT_EQ(model->visits().lastVisited(TestSupport::makePullRequest(1).id), clock->now());
}

TEST_F(PullRequestMenuViewTests, keysReachTheirOperations)
{
    showList({TestSupport::makePullRequest(1)});
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
    press(Qt::Key_Menu);
    EXPECT_TRUE(menu->isVisible());
    menu->close();

    const QSignalSpy closes(view.get(), &PullRequestMenuView::closeRequested);
    press(Qt::Key_Escape);
    EXPECT_EQ(closes.count(), 1);
}

TEST_F(PullRequestMenuViewTests, tabGoesThroughHeaderListAndFindsItsWayBack)
{
    showList({TestSupport::makePullRequest(1)});
    std::vector<std::string> stops;
    for (int press = 0; press < 4; ++press) {
        QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
        stops.push_back(view->focusWidget()->objectName().toStdString());
    }
    EXPECT_THAT(stops, ElementsAre("brand", "find", "options", list().objectName().toStdString()));
}

TEST_F(PullRequestMenuViewTests, slashFindsAmongTheRows)
{
    auto quay = TestSupport::makePullRequest(1);
    quay.title = "Widen the quay";
    showList({quay, TestSupport::makePullRequest(2), TestSupport::makePullRequest(3)});
    press(Qt::Key_Slash);
    ASSERT_NE(qobject_cast<QLineEdit*>(view->focusWidget()), nullptr);
    type("quay");
    EXPECT_EQ(rows(), 1);
    EXPECT_THAT(footer().toStdString(), testing::StartsWith("1 pull request,"));
    press(Qt::Key_Down);
    EXPECT_TRUE(list().hasFocus());
    EXPECT_TRUE(list().selectionModel()->isSelected(list().model()->index(0, 0)));
    press(Qt::Key_Slash);
    press(Qt::Key_Escape);
    EXPECT_EQ(rows(), 3);
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, escapeInTheHitsEndsFindingBeforeItCloses)
{
    showList({TestSupport::makePullRequest(1), TestSupport::makePullRequest(2)});
    const QSignalSpy closes(view.get(), &PullRequestMenuView::closeRequested);
    press(Qt::Key_Slash);
    press(Qt::Key_Down);
    ASSERT_TRUE(list().hasFocus());
    press(Qt::Key_Escape);
    EXPECT_FALSE(view->findChild<FindBar*>()->isOpen());
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(closes.count(), 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(closes.count(), 1);
}

TEST_F(PullRequestMenuViewTests, lettersInTheFindFieldAreText)
{
    showList({TestSupport::makePullRequest(1)});
    const int calls = provider->statusCalls();
    press(Qt::Key_Slash);
    type("r,e");
    EXPECT_EQ(provider->statusCalls(), calls);
    EXPECT_FALSE(part<QMenu>("optionsMenu")->isVisible());
    EXPECT_EQ(qobject_cast<QLineEdit*>(view->focusWidget())->text(), QStringLiteral("r,e"));
}

TEST_F(PullRequestMenuViewTests, aCardClosesTheMenuThatItWouldBeBehind)
{
    showList({TestSupport::makePullRequest(1)});
    notifier->isGranted = false;
    press(Qt::Key_Comma);
    ASSERT_TRUE(part<QMenu>("optionsMenu")->isVisible());
    model->toggleNewPullRequestNotifications();
    ASSERT_TRUE(TestSupport::eventually([this] { return shows("notificationsDisabled"); }));
    EXPECT_FALSE(part<QMenu>("optionsMenu")->isVisible());
    EXPECT_TRUE(part<QWidget>("notificationsDisabled")->isAncestorOf(view->focusWidget()));
}

TEST_F(PullRequestMenuViewTests, nothingBelowACardCanBeUsed)
{
    showList({TestSupport::makePullRequest(1)});
    model->setProjectDirectory("/nowhere");
    press(Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_E, Qt::ControlModifier);
    ASSERT_TRUE(TestSupport::eventually([this] { return shows("editorError"); }));
    EXPECT_FALSE(list().isEnabled());
    EXPECT_TRUE(view->keepsOpen());
    press(Qt::Key_Return);
    EXPECT_FALSE(shows("editorError"));
    EXPECT_TRUE(list().isEnabled());
    EXPECT_TRUE(list().hasFocus());
    EXPECT_FALSE(view->keepsOpen());
}

TEST_F(PullRequestMenuViewTests, anEditorThatFailsAsksForThePanelToBeShown)
{
    showList({TestSupport::makePullRequest(1)});
    const QSignalSpy asked(view.get(), &PullRequestMenuView::attentionRequested);
    press(Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_E, Qt::ControlModifier);
    ASSERT_TRUE(TestSupport::eventually([this] { return shows("editorError"); }));
    EXPECT_EQ(asked.count(), 1);
    press(Qt::Key_Return);
    EXPECT_EQ(asked.count(), 1);
}

TEST_F(PullRequestMenuViewTests, aMissingFolderLeadsToTheFieldOfTheProjectDirectory)
{
    showList({TestSupport::makePullRequest(1)});
    model->setProjectDirectory("/nowhere");
    press(Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_E, Qt::ControlModifier);
    ASSERT_TRUE(TestSupport::eventually([this] { return shows("editorError"); }));
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

TEST_F(PullRequestMenuViewTests, closingIsExplainedAndThenConfirmed)
{
    showList({TestSupport::makePullRequest(1)});
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
    showList({TestSupport::makePullRequest(1)});
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
    EXPECT_THAT(desktop.journal(), testing::Contains(testing::HasSubstr("https://tarnwick.dev")));
}

TEST_F(PullRequestMenuViewTests, theMenuLeadsToTheRepositoriesAndDoneBack)
{
    showList({TestSupport::makePullRequest(1)});
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
    showList({TestSupport::makePullRequest(1)});
    actionOfMenu("Repositories")->trigger();
    const QSignalSpy closes(view.get(), &PullRequestMenuView::closeRequested);
    press(Qt::Key_Escape);
    EXPECT_FALSE(shows("repositoryPicker"));
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(closes.count(), 0);
}

TEST_F(PullRequestMenuViewTests, withoutASelectionAButtonLeadsToTheRepositories)
{
    start();
    refresh();
    showView();
    EXPECT_EQ(
        part<QLabel>("noticeTitle")->text(),
        QStringLiteral("No pull requests involving you were found."));
    part<QAbstractButton>("chooseRepositories")->click();
    EXPECT_TRUE(shows("repositoryPicker"));
    EXPECT_FALSE(shows("notice"));
    part<QAbstractButton>("done")->click();
    EXPECT_TRUE(shows("notice"));
}

TEST_F(PullRequestMenuViewTests, thePanelOpensWhereItWasLeft)
{
    showList({TestSupport::makePullRequest(1)});
    actionOfMenu("Repositories")->trigger();
    view->panelHidden();
    view->hide();
    view->show();
    view->panelShown();
    EXPECT_TRUE(shows("repositoryPicker"));
    EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("findRepository"));
}

TEST_F(PullRequestMenuViewTests, aHiddenPanelForgetsWhatWasToBeFound)
{
    showList({TestSupport::makePullRequest(1), TestSupport::makePullRequest(2)});
    press(Qt::Key_Slash);
    type("zzz");
    EXPECT_EQ(rows(), 0);
    view->panelHidden();
    EXPECT_EQ(rows(), 2);
}

/// Three pull requests of a stack, of which the middle one is a draft.
std::vector<PullRequestKit::PullRequest> stackWithDraft()
{
    auto draft = TestSupport::makePullRequest(2, "b", "a");
    draft.isDraft = true;
    return {
        TestSupport::makePullRequest(1, "a", "main"),
        draft,
        TestSupport::makePullRequest(3, "c", "b")};
}

TEST_F(PullRequestMenuViewTests, theChipShowsAndHidesWhatIsHidden)
{
    showList(stackWithDraft());
    auto* const chip = part<QAbstractButton>("hiddenChip");
    ASSERT_TRUE(chip->isVisible());
    EXPECT_EQ(chip->text(), QStringLiteral("1 hidden"));
    EXPECT_EQ(rows(), 2);
    QTest::mouseClick(chip, Qt::LeftButton);
    EXPECT_EQ(rows(), 3);
    EXPECT_EQ(chip->text(), QStringLiteral("Hide 1"));
    EXPECT_THAT(footer().toStdString(), testing::StartsWith("2 pull requests,"));
    EXPECT_THAT(
        list().model()->index(1, 0).data(Qt::AccessibleDescriptionRole).toString().toStdString(),
        testing::StartsWith("Hidden by Status."));
    EXPECT_TRUE(list().hasFocus()) << "a click leaves the keyboard where it is";
    EXPECT_THAT(shownNumbers(), testing::UnorderedElementsAre(1, 3));
    press(Qt::Key_H);
    EXPECT_EQ(rows(), 2);
    press(Qt::Key_H);
    EXPECT_EQ(rows(), 3);
    view->panelHidden();
    EXPECT_EQ(rows(), 2);
}

TEST_F(PullRequestMenuViewTests, dimmedRowsFollowTheModel)
{
    showList(stackWithDraft());
    press(Qt::Key_H);
    auto pullRequests = stackWithDraft();
    pullRequests[1].title = "Another title";
    provider->setPullRequests(pullRequests);
    refresh();
    EXPECT_EQ(
        list().model()->index(1, 0).data(Qt::DisplayRole).toString(),
        QStringLiteral("Another title"));
    model->toggleStatus(StatusFilter::draft);
    EXPECT_EQ(rows(), 3);
    EXPECT_FALSE(shows("hiddenChip"));
    model->toggleStatus(StatusFilter::draft);
    EXPECT_EQ(rows(), 2) << "what was to be hidden again is hidden again";
}

TEST_F(PullRequestMenuViewTests, anEmptyListSaysWhatHidesAndShowsIt)
{
    showList(stackWithDraft());
    model->toggleStatus(StatusFilter::open);
    EXPECT_TRUE(shows("notice"));
    EXPECT_EQ(part<QLabel>("noticeMessage")->text(), QStringLiteral("3 are hidden by filters."));
    EXPECT_THAT(footer().toStdString(), testing::StartsWith("0 pull requests,"));
    ASSERT_TRUE(shows("showHidden"));
    EXPECT_TRUE(shows("tryAgain"));
    EXPECT_TRUE(part<QWidget>("showHidden")->hasFocus());
    press(Qt::Key_Return);
    EXPECT_EQ(rows(), 3);
    EXPECT_TRUE(list().hasFocus());
    EXPECT_THAT(footer().toStdString(), testing::StartsWith("0 pull requests,"));
    EXPECT_EQ(part<QAbstractButton>("hiddenChip")->text(), QStringLiteral("Hide 3"));
    press(Qt::Key_H);
    EXPECT_TRUE(shows("notice"));
}

TEST_F(PullRequestMenuViewTests, theFocusGoesToTheListWhenTheChipGoes)
{
    showList(stackWithDraft());
    part<QWidget>("hiddenChip")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_EQ(rows(), 3);
    EXPECT_TRUE(part<QWidget>("hiddenChip")->hasFocus());
    model->toggleStatus(StatusFilter::draft);
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, theChipComesAfterTheListInTheOrderOfTab)
{
    showList(stackWithDraft());
    QTest::keyClick(&list(), Qt::Key_Tab);
    EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("hiddenChip"));
    QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("brand"));
}

TEST_F(PullRequestMenuViewTests, theMagnifierOpensAndClosesTheFindBar)
{
    showList({TestSupport::makePullRequest(1)});
    auto* const find = part<QAbstractButton>("find");
    EXPECT_EQ(find->accessibleName(), QStringLiteral("Find"));
    EXPECT_EQ(find->toolTip(), QStringLiteral("Find (/)"));
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(find);
    EXPECT_EQ(told->role(), QAccessible::Button);
    EXPECT_FALSE(told->state().pressed);
    QTest::mouseClick(find, Qt::LeftButton);
    EXPECT_TRUE(view->findChild<FindBar*>()->isOpen());
    EXPECT_TRUE(part<QLineEdit>("findField")->hasFocus());
    EXPECT_TRUE(told->state().pressed);
    QTest::mouseClick(find, Qt::LeftButton);
    EXPECT_FALSE(view->findChild<FindBar*>()->isOpen());
    EXPECT_FALSE(told->state().pressed);
    EXPECT_TRUE(list().hasFocus());
    told->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(view->findChild<FindBar*>()->isOpen());
}

TEST_F(PullRequestMenuViewTests, controlFFindsAndEndsFinding)
{
    showList({TestSupport::makePullRequest(1)});
    const auto press = [this] {
        QTest::keyClick(view->focusWidget(), Qt::Key_F, Qt::ControlModifier);
    };
    press();
    EXPECT_TRUE(part<QLineEdit>("findField")->hasFocus());
    list().setFocus();
    press();
    EXPECT_TRUE(part<QLineEdit>("findField")->hasFocus()) << "from elsewhere it leads back";
    press();
    EXPECT_FALSE(view->findChild<FindBar*>()->isOpen());
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, withoutAListThereIsNothingToFindIn)
{
    showList({TestSupport::makePullRequest(1)});
    EXPECT_TRUE(shows("find"));
    press(Qt::Key_Slash);
    model->toggleStatus(StatusFilter::open);
    EXPECT_TRUE(shows("notice"));
    EXPECT_FALSE(shows("find"));
    EXPECT_FALSE(view->findChild<FindBar*>()->isOpen());
    QTest::keyClick(view->focusWidget(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_FALSE(view->findChild<FindBar*>()->isOpen());
}

TEST_F(PullRequestMenuViewTests, tabInTheFieldGoesToTheHitsAndBack)
{
    showList({TestSupport::makePullRequest(1), TestSupport::makePullRequest(2)});
    press(Qt::Key_Slash);
    type("request 2");
    QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(list().hasFocus());
    EXPECT_TRUE(list().selectionModel()->isSelected(list().model()->index(0, 0)));
    QTest::keyClick(&list(), Qt::Key_Backtab);
    EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("findClose"));
    QTest::keyClick(view->focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("findField"));
}

TEST_F(PullRequestMenuViewTests, returnInTheFieldOpensTheFirstHit)
{
    showList({TestSupport::makePullRequest(1), TestSupport::makePullRequest(2)});
    press(Qt::Key_Slash);
    type("#2");
    press(Qt::Key_Return);
    EXPECT_THAT(desktop.journal(), testing::Contains(testing::HasSubstr("/octo/tools/pull/2")));
    EXPECT_TRUE(model->visits().isVisited(TestSupport::makePullRequest(2)));
}

TEST_F(PullRequestMenuViewTests, aRowCanBeOpenedWhileThePanelStays)
{
    showList({TestSupport::makePullRequest(1), TestSupport::makePullRequest(2)});
    press(Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_THAT(desktop.journal(), testing::Contains(testing::HasSubstr("/octo/tools/pull/")));
    EXPECT_THAT(desktop.journal(), testing::Not(testing::Contains(testing::HasSubstr("dismiss"))));
    EXPECT_TRUE(view->keepsOpen()) << "when the browser takes the focus";
    EXPECT_THAT(rows(), 2);
    QEvent activation(QEvent::ActivationChange);
    QApplication::sendEvent(view.get(), &activation);
    ASSERT_TRUE(view->isActiveWindow());
    EXPECT_FALSE(view->keepsOpen()) << "once the user is back";
    press(Qt::Key_Return);
    EXPECT_THAT(desktop.journal(), testing::Contains(testing::HasSubstr("dismiss")));
}

TEST_F(PullRequestMenuViewTests, aMenuThatTheMouseOpenedLeavesTheFocusInTheList)
{
    showList({TestSupport::makePullRequest(1)});
    auto* const options = part<QAbstractButton>("options");
    QTest::mouseClick(options, Qt::LeftButton);
    auto* const menu = part<QMenu>("optionsMenu");
    ASSERT_TRUE(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_FALSE(menu->isVisible());
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PullRequestMenuViewTests, theMenuKeyIsTheRowsOrElseTheOptions)
{
    showList({TestSupport::makePullRequest(1)});
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

TEST_F(PullRequestMenuViewTests, aRowThatWasOpenedAndHasChangedIsNewAgainUntilItIsRead)
{
    auto pullRequest = TestSupport::makePullRequest(1);
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

TEST_F(PullRequestMenuViewTests, aMutedRowGoesAtOnceAndTheNextOneIsSelected)
{
    showList(
        {TestSupport::makePullRequest(1),
         TestSupport::makePullRequest(2),
         TestSupport::makePullRequest(3)});
    const auto selected = [this] { return list().currentIndex().row(); };
    const auto choose = [this](const char* text) {
        press(Qt::Key_Menu);
        QMenu& menu = *part<QMenu>("rowMenu");
        QAction* const mute = actionOf(menu, "Mute");
        actionOf(mute != nullptr ? *mute->menu() : menu, text)->trigger();
        delete &menu;
    };
    const auto descriptionOf = [this](int row) {
        return list()
            .model()
            ->index(row, 0)
            .data(Qt::AccessibleDescriptionRole)
            .toString()
            .toStdString();
    };
    press(Qt::Key_Home);
    press(Qt::Key_Down);
    const std::string last = descriptionOf(2);
    choose("Until It Changes");
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(descriptionOf(selected()), last);
    EXPECT_TRUE(list().selectionModel()->isSelected(list().currentIndex()));
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(part<QAbstractButton>("hiddenChip")->text(), QStringLiteral("1 hidden"));
    EXPECT_EQ(
        part<QAbstractButton>("hiddenChip")->accessibleDescription(), QStringLiteral("1 muted"));

    press(Qt::Key_H);
    EXPECT_THAT(descriptionOf(1), testing::StartsWith("Muted until it changes. "));
    press(Qt::Key_Home);
    press(Qt::Key_Down);
    choose("Unmute");
    EXPECT_EQ(rows(), 3);
    EXPECT_FALSE(shows("hiddenChip"));

    choose("For a Day");
    press(Qt::Key_End);
    choose("For a Day");
    press(Qt::Key_Home);
    choose("For a Day");
    EXPECT_EQ(part<QLabel>("noticeMessage")->text(), QStringLiteral("3 are muted."));
}

TEST_F(PullRequestMenuViewTests, filesAndChecksAreOpenedInPlaceOfThePanelAndCountAsAVisit)
{
    auto pullRequest = TestSupport::makePullRequest(1);
    pullRequest.checks = {1, 1, 0};
    showList({pullRequest, TestSupport::makePullRequest(2)});
    for (const char* const item : {"Open Files", "Open Checks"}) {
        press(Qt::Key_Home);
        press(Qt::Key_Menu);
        EXPECT_FALSE(model->visits().isVisited(TestSupport::makePullRequest(2)));
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

}  // namespace
}  // namespace Tarnwick
