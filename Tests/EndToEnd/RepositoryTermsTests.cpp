#include "TarnwickTest.h"

#include <algorithm>

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using TestSupport::outline;

/// A GitHub that takes several `repo:` terms of one search for all of them.
class RepositoryTerms : public TestSupport::TarnwickTest {
protected:
    void serveWithTheOtherMeaning()
    {
        setRepositoryTerms(SampleGitHub::RepositoryTerms::all);
        serve("everyday");
    }

    std::vector<std::string> searches()
    {
        std::vector<std::string> bodies;
        for (const auto& recorded : server().requests()) {
            if (recorded.kind == SampleGitHub::RequestKind::search) {
                bodies.push_back(recorded.request.body);
            }
        }
        server().forgetRequests();
        return bodies;
    }

    const std::string two = "harbourlight/ferry-api, harbourlight/tide-tables";
};

TEST_F(RepositoryTerms, thatBeginToExcludeEachOtherEmptyNoList)
{
    serve("everyday");
    select(two);
    const auto before = outline(listJson());
    ASSERT_THAT(before, Not(SizeIs(0)));
    ASSERT_THAT(searches(), SizeIs(1));

    serveWithTheOtherMeaning();
    EXPECT_EQ(outline(listJson()), before);
    const auto first = searches();
    ASSERT_THAT(first, SizeIs(3));
    EXPECT_THAT(first[1], HasSubstr("together: search"));
    EXPECT_THAT(first[2], HasSubstr("ISSUE_ADVANCED"));

    EXPECT_EQ(outline(listJson()), before);
    const auto second = searches();
    ASSERT_THAT(second, SizeIs(1));
    EXPECT_THAT(
        second[0], HasSubstr("(repo:harbourlight/ferry-api OR repo:harbourlight/tide-tables)"));
}

TEST_F(RepositoryTerms, ofAnEmptyListAreAskedAboutOnceADay)
{
    serve("everyday");
    select("robin-k/pocket-atlas, robin-k/none");
    EXPECT_THAT(outline(listJson()), SizeIs(0));
    EXPECT_THAT(searches(), SizeIs(2));
    EXPECT_THAT(outline(listJson()), SizeIs(0));
    EXPECT_THAT(searches(), SizeIs(1));
}

}  // namespace
