#include "TarnwickTest.h"

namespace {

using namespace TestSupport;

/// What Tarnwick makes of the meanings that several `repo:` terms of one search can have.
class RepositoryTerms : public TarnwickTest {
protected:
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
};

TEST_F(RepositoryTerms, thatExcludeEachOtherEmptyNoList)
{
    setRepositoryTerms(SampleGitHub::RepositoryTerms::all);
    serve("everyday");
    select("harbourlight/ferry-api");
    const std::size_t first = outline(listJson()).size();
    select("harbourlight/tide-tables");
    const std::size_t second = outline(listJson()).size();
    ASSERT_GT(first, 0U);
    ASSERT_GT(second, 0U);
    EXPECT_THAT(searches(), SizeIs(2));

    select("harbourlight/ferry-api, harbourlight/tide-tables");
    EXPECT_THAT(outline(listJson()), SizeIs(first + second));
    const auto proving = searches();
    ASSERT_THAT(proving, SizeIs(3));
    EXPECT_THAT(proving[1], HasSubstr("together: search"));
    EXPECT_THAT(proving[2], HasSubstr("ISSUE_ADVANCED"));

    EXPECT_THAT(outline(listJson()), SizeIs(first + second));
    const auto grouped = searches();
    ASSERT_THAT(grouped, SizeIs(1));
    EXPECT_THAT(
        grouped[0], HasSubstr("(repo:harbourlight/ferry-api OR repo:harbourlight/tide-tables)"));
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
