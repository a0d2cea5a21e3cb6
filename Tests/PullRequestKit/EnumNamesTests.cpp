#include "PullRequestKit/EnumNames.h"

#include "PullRequestKit/PullRequestState.h"
#include "PullRequestKit/ReviewActivity.h"
#include "Support/Mapped.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace {

using namespace PullRequestKit;
using testing::ElementsAre;

template<typename E>
std::vector<std::string> names()
{
    return TestSupport::mapped(allCases<E>(), [](E value) { return std::string(nameOf(value)); });
}

TEST(EnumNames, areTheCaseNamesInOrder)
{
    EXPECT_THAT(names<PullRequestState>(), ElementsAre("open", "closed", "merged"));
    EXPECT_THAT(
        names<ReviewState>(),
        ElementsAre("none", "pending", "approved", "commented", "changesRequested"));
    EXPECT_THAT(
        names<PullRequestMergeability>(), ElementsAre("mergeable", "conflicting", "unknown"));
}

TEST(EnumNames, leadBackToTheirCases)
{
    for (const ReviewState state : allCases<ReviewState>()) {
        EXPECT_EQ(enumNamed<ReviewState>(nameOf(state)), state);
    }
}

TEST(EnumNames, areKnownOnlyExactly)
{
    for (const auto* text : {"", "Open", "OPEN", "open ", "ope", "opened", "none"}) {
        EXPECT_EQ(enumNamed<PullRequestState>(text), std::nullopt) << text;
    }
}

}  // namespace
