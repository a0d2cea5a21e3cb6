#include "PanelFixture.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

namespace Tarnwick {
namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

class PanelByTurnTests : public PanelTest {
protected:
    PanelByTurnTests()
    {
        setApplicationStyle(1.0).setPreferences({.reducedMotion = true, .higherContrast = false});
    }

    void showByTurn(const std::vector<PullRequest>& pullRequests)
    {
        showList(pullRequests);
        model->setArrangement(Arrangement::byWhoseTurn);
        processEvents();
    }

    /// The user's own, which is blocked.
    static PullRequest blocked(std::int64_t number)
    {
        PullRequest pullRequest = makePullRequest(number);
        pullRequest.author = "octo";
        pullRequest.mergeability = PullRequestMergeability::conflicting;
        return pullRequest;
    }

    /// Headings and titles.
    QStringList shown() const
    {
        QStringList texts;
        for (int row = 0; row < rows(); ++row) {
            texts.append(list().model()->index(row, 0).data(Qt::DisplayRole).toString());
        }
        return texts;
    }
};

TEST_F(PanelByTurnTests, rowsStandUnderHeadingsThatNobodyCounts)
{
    showByTurn({makePullRequest(1), blocked(2)});
    EXPECT_EQ(
        shown(),
        QStringList(
            {u"Waiting on You"_s,
             u"Pull request 2"_s,
             u"Waiting on Others"_s,
             u"Pull request 1"_s}));
    EXPECT_THAT(footer().toStdString(), StartsWith("2 pull requests,"));
    press(Qt::Key_Slash);
    QTest::keyClicks(view->focusWidget(), u"#2"_s);
    EXPECT_EQ(shown(), QStringList({u"Waiting on You"_s, u"Pull request 2"_s}));
    EXPECT_THAT(footer().toStdString(), StartsWith("1 pull request,"));
    press(Qt::Key_Escape);
    model->setArrangement(Arrangement::byReviewState);
    EXPECT_EQ(list().model()->rowCount(), 2);
}

TEST_F(PanelByTurnTests, aRefreshTakesARowToAnotherHeading)
{
    showByTurn({makePullRequest(1), blocked(2)});
    PullRequest merged = blocked(2);
    merged.mergeability = PullRequestMergeability::mergeable;
    merged.isDraft = false;
    provider->setPullRequests({makePullRequest(1), merged});
    refresh();
    EXPECT_EQ(shown().front(), u"Waiting on Others"_s);
    EXPECT_EQ(shown().size(), 3);
}

TEST_F(PanelByTurnTests, hiddenRowsStandUnderTheirHeadingsAndMoveNothing)
{
    std::vector<PullRequest> pullRequests;
    for (std::int64_t number = 1; number <= 40; ++number) {
        pullRequests.push_back(number % 2 == 0 ? blocked(number) : makePullRequest(number));
        pullRequests.back().isDraft = number % 5 == 1;
    }
    showByTurn(pullRequests);
    QScrollBar& bar = *list().verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const QModelIndex inSight = list().indexAt(QPoint(100, 28));
    const QString title = inSight.data(Qt::DisplayRole).toString();
    const int top = list().visualRect(inSight).top();
    press(Qt::Key_H);
    EXPECT_EQ(shown().size(), 42);
    const auto found = shown().indexOf(title);
    EXPECT_EQ(list().visualRect(list().model()->index(static_cast<int>(found), 0)).top(), top);
    press(Qt::Key_H);
    EXPECT_EQ(shown().size(), 34);
    const auto again = shown().indexOf(title);
    EXPECT_EQ(list().visualRect(list().model()->index(static_cast<int>(again), 0)).top(), top);
}

}  // namespace
}  // namespace Tarnwick
