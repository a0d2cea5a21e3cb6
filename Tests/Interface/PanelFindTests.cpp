#include "PanelFixture.h"

namespace Tarnwick {
namespace {

class PanelFindTests : public PanelTest {};

TEST_F(PanelFindTests, slashFindsAmongTheRows)
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

TEST_F(PanelFindTests, escapeInTheHitsEndsFindingBeforeItCloses)
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

TEST_F(PanelFindTests, lettersInTheFindFieldAreText)
{
    showList({TestSupport::makePullRequest(1)});
    const int calls = provider->statusCalls();
    press(Qt::Key_Slash);
    type("r,e");
    EXPECT_EQ(provider->statusCalls(), calls);
    EXPECT_FALSE(part<QMenu>("optionsMenu")->isVisible());
    EXPECT_EQ(qobject_cast<QLineEdit*>(view->focusWidget())->text(), QStringLiteral("r,e"));
}

TEST_F(PanelFindTests, aHiddenPanelForgetsWhatWasToBeFound)
{
    showList({TestSupport::makePullRequest(1), TestSupport::makePullRequest(2)});
    press(Qt::Key_Slash);
    type("zzz");
    EXPECT_EQ(rows(), 0);
    view->panelHidden();
    EXPECT_EQ(rows(), 2);
}

TEST_F(PanelFindTests, theMagnifierOpensAndClosesTheFindBar)
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

TEST_F(PanelFindTests, controlFFindsAndEndsFinding)
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

TEST_F(PanelFindTests, withoutAListThereIsNothingToFindIn)
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

TEST_F(PanelFindTests, tabInTheFieldGoesToTheHitsAndBack)
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

TEST_F(PanelFindTests, returnInTheFieldOpensTheFirstHit)
{
    showList({TestSupport::makePullRequest(1), TestSupport::makePullRequest(2)});
    press(Qt::Key_Slash);
    type("#2");
    press(Qt::Key_Return);
    EXPECT_THAT(desktop.journal(), testing::Contains(testing::HasSubstr("/octo/tools/pull/2")));
    EXPECT_TRUE(model->visits().isVisited(TestSupport::makePullRequest(2)));
}

}  // namespace
}  // namespace Tarnwick
