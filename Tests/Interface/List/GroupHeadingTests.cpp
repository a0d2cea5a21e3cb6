#include "Tarnwick/Interface/List/HeadingWording.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;
using PullRequestKit::Whose;

TEST(GroupHeadings, areReadAsSentences)
{
    using HeadingWording::sentence;
    EXPECT_EQ(sentence({Whose::you, 5, 3}), u"Waiting on You, 3 of 5 pull requests"_s);
    EXPECT_EQ(sentence({Whose::you, 5, 1}), u"Waiting on You, 1 of 5 pull requests"_s);
    EXPECT_EQ(sentence({Whose::ready, 2, 2}), u"Ready to Merge, 2 pull requests"_s);
    EXPECT_EQ(sentence({Whose::teams, 1, 1}), u"Your Teams, 1 pull request"_s);
    EXPECT_EQ(sentence({Whose::others, 0, 0}), u"Waiting on Others"_s);
}

TEST(GroupHeadings, countWhatEarnsThemAndNothingAboveDimmedRowsAlone)
{
    EXPECT_EQ(HeadingWording::count({Whose::you, 6, 1}), u"1"_s);
    EXPECT_EQ(HeadingWording::count({Whose::you, 1, 0}), u"0"_s);
    EXPECT_EQ(HeadingWording::count({Whose::you, 0, 0}), QString());
}

}  // namespace
