#include "Tarnwick/Model/Filters.h"

#include "Support/Mapped.h"

#include <gmock/gmock.h>

namespace {

using namespace Tarnwick;
using PullRequestKit::allCases;
using PullRequestKit::enumNamed;
using PullRequestKit::nameOf;
using testing::ElementsAre;

template<typename E>
std::vector<std::string> namesOf()
{
    return TestSupport::mapped(allCases<E>(), [](E value) { return std::string(nameOf(value)); });
}

TEST(Filters, haveTheirStoredTextsInTheOrderOfTheMenu)
{
    EXPECT_THAT(namesOf<StatusFilter>(), ElementsAre("Open", "Draft"));
    EXPECT_THAT(namesOf<ChecksFilter>(), ElementsAre("None", "Pending", "Pass", "Fail"));
    EXPECT_THAT(
        namesOf<ReviewFilter>(), ElementsAre("Approved", "Changes Requested", "Commented", "None"));
    EXPECT_THAT(namesOf<MergeabilityFilter>(), ElementsAre("Mergeable", "Conflicting", "Unknown"));
    EXPECT_THAT(namesOf<ReviewerFilter>(), ElementsAre("Myself", "Any", "Involved"));
}

TEST(Filters, areReadFromExactlyTheirTexts)
{
    EXPECT_EQ(enumNamed<ReviewFilter>("Changes Requested"), ReviewFilter::changesRequested);
    EXPECT_EQ(enumNamed<ReviewFilter>("changesRequested"), std::nullopt);
    EXPECT_EQ(enumNamed<StatusFilter>("open"), std::nullopt);
    EXPECT_EQ(enumNamed<StatusFilter>(""), std::nullopt);
}

TEST(Filters, haveFourPollingIntervalsWithLabels)
{
    std::vector<std::pair<long, std::string_view>> intervals;
    for (const auto& [interval, label] : pollingIntervals) {
        intervals.emplace_back(secondsOf(interval).count(), label);
    }
    EXPECT_THAT(
        intervals,
        ElementsAre(
            std::pair(60, "1 minute"),
            std::pair(300, "5 minutes"),
            std::pair(1800, "30 minutes"),
            std::pair(3600, "1 hour")));
}

TEST(Filters, findAPollingIntervalByItsSecondsOnly)
{
    using std::chrono::seconds;
    EXPECT_EQ(pollingIntervalOf(seconds{1800}), PollingInterval::thirtyMinutes);
    EXPECT_EQ(pollingIntervalOf(seconds{120}), std::nullopt);
    EXPECT_EQ(pollingIntervalOf(seconds{0}), std::nullopt);
}

TEST(Filters, askTheProviderForTheScopeOfTheSameName)
{
    EXPECT_EQ(reviewerScopeOf(ReviewerFilter::myself), PullRequestKit::ReviewerScope::myself);
    EXPECT_EQ(reviewerScopeOf(ReviewerFilter::any), PullRequestKit::ReviewerScope::any);
    EXPECT_EQ(reviewerScopeOf(ReviewerFilter::involved), PullRequestKit::ReviewerScope::involved);
}

}  // namespace
