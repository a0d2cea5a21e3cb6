#include "GhTest.h"

#include <chrono>

namespace {

using testing::HasSubstr;

/// What `gh` makes of the question after a failed login.
class GhLimit : public GhTest {
protected:
    Result limit() const { return gh({"api", "--hostname", "github.com", "rate_limit"}); }
};

TEST_F(GhLimit, isToldWithWhatRemains)
{
    serve("everyday");
    const Result result = limit();
    EXPECT_EQ(result.status, 0);
    const auto body = boost::json::parse(result.output);
    EXPECT_EQ(at(body, "/resources/core/remaining"), 5000);
    EXPECT_EQ(at(body, "/resources/graphql/remaining"), 5000);
    EXPECT_EQ(at(body, "/resources/graphql/reset"), 1'772'370'000);
    EXPECT_EQ(server().requests().at(0).kind, SampleGitHub::RequestKind::authentication);
}

TEST_F(GhLimit, thatIsUsedUpTellsItsEndAndRefusesEverythingElse)
{
    serve("everyday");
    setFault("used-up=1200@authentication");
    const auto body = boost::json::parse(limit().output);
    EXPECT_EQ(at(body, "/resources/core/remaining"), 0);
    EXPECT_EQ(at(body, "/resources/graphql/remaining"), 0);
    const auto end = std::chrono::system_clock::to_time_t(
        std::chrono::system_clock::now() + std::chrono::seconds(1200));
    EXPECT_NEAR(
        static_cast<double>(at(body, "/resources/graphql/reset").as_int64()),
        static_cast<double>(end),
        5);
    EXPECT_THAT(gh({"api", "--hostname", "github.com", "/"}).errors, HasSubstr("(HTTP 403)"));
}

TEST_F(GhLimit, isRefusedByTheFaultsOfTheLoginAsTheLoginIs)
{
    serve("everyday");
    setFault("rate-limit@authentication");
    EXPECT_EQ(limit().errors, "gh: API rate limit exceeded for user ID 583231. (HTTP 403)\n");
    setFault("unauthorized@authentication");
    EXPECT_THAT(limit().errors, HasSubstr("gh: Bad credentials (HTTP 401)"));
}

TEST_F(GhLimit, isNotAnsweredWhereTheConnectionEnds)
{
    serve("everyday");
    setFault("hang-up@authentication");
    EXPECT_THAT(limit().errors, HasSubstr("Get \"https://api.github.com/rate_limit\": EOF"));
}

}  // namespace
