#include "PanelFixture.h"

namespace Tarnwick {
namespace {

class PanelHiddenTests : public PanelTest {};

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

TEST_F(PanelHiddenTests, theChipShowsAndHidesWhatIsHidden)
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

TEST_F(PanelHiddenTests, dimmedRowsFollowTheModel)
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

TEST_F(PanelHiddenTests, anEmptyListSaysWhatHidesAndShowsIt)
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

TEST_F(PanelHiddenTests, theFocusGoesToTheListWhenTheChipGoes)
{
    showList(stackWithDraft());
    part<QWidget>("hiddenChip")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_EQ(rows(), 3);
    EXPECT_TRUE(part<QWidget>("hiddenChip")->hasFocus());
    model->toggleStatus(StatusFilter::draft);
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(PanelHiddenTests, theChipComesAfterTheListInTheOrderOfTab)
{
    showList(stackWithDraft());
    QTest::keyClick(&list(), Qt::Key_Tab);
    EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("hiddenChip"));
    QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("brand"));
}

TEST_F(PanelHiddenTests, aMutedRowGoesAtOnceAndTheNextOneIsSelected)
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

}  // namespace
}  // namespace Tarnwick
