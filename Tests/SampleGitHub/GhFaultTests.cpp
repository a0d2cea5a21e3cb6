#include "GhTest.h"

#include <chrono>

namespace {

using namespace TestSupport;

/// What `gh` makes of a fault: its exit status and a piece of what it prints to each stream.
struct Expected {
    std::string fault;
    int status = 0;
    std::string output;
    std::string errors;
};

void PrintTo(const Expected& expected, std::ostream* stream)
{
    *stream << expected.fault;
}

class GhFaults
    : public GhTest
    , public testing::WithParamInterface<Expected> {};

TEST_P(GhFaults, areReportedByGh)
{
    serve("everyday");
    setFault(GetParam().fault);

    const Result result = search("is:pr is:open repo:harbourlight/ferry-api sort:updated-desc");

    EXPECT_EQ(result.status, GetParam().status);
    EXPECT_THAT(result.output, HasSubstr(GetParam().output));
    EXPECT_THAT(result.errors, HasSubstr(GetParam().errors));
    EXPECT_EQ(result.errors.empty(), GetParam().errors.empty());
}

INSTANTIATE_TEST_SUITE_P(
    OfASearch,
    GhFaults,
    testing::Values(
        Expected{"unauthorized", 1, "", "gh: Bad credentials (HTTP 401)"},
        Expected{"rate-limit", 1, "", "gh: API rate limit exceeded for user ID 583231. (HTTP 403)"},
        Expected{"server-error", 1, "", "gh: Internal Server Error (HTTP 500)"},
        Expected{
            "errors",
            1,
            R"("errors":[{"type":"FORBIDDEN",)",
            "gh: Something went wrong on the first field.\n"
            "Something went wrong on the second field.\n"},
        Expected{
            "errors-only",
            1,
            R"({"errors":[{"type":"FORBIDDEN",)",
            "gh: Something went wrong on the first field.\n"
            "Something went wrong on the second field.\n"},
        Expected{"cut-off", 1, "", "unexpected EOF"},
        Expected{"truncated", 1, "", "unexpected end of JSON input"},
        Expected{"no-cursor", 0, R"("pageInfo":{"hasNextPage":true,"endCursor":null})", ""},
        Expected{"null-nodes", 0, R"("nodes":[null,null,null,null,null,null,null,null]}}})", ""},
        Expected{"foreign-nodes", 0, R"("nodes":[{},{},{},{},{},{},{},{}]}}})", ""},
        Expected{"missing-data", 0, "{}", ""},
        Expected{"empty-body", 1, "", "unexpected end of JSON input"},
        Expected{"not-json", 1, "", "invalid character '<' looking for beginning of value"},
        Expected{"wrong-type", 0, R"({"number":"seven",)", ""},
        Expected{"deep", 0, R"({"data":)" + std::string(5000, '[') + "]", ""},
        Expected{"padding=2", 0, std::string(2 << 20, ' ') + "{\"data\"", ""}));

class GhFault : public GhTest {};

TEST_F(GhFault, textThatIsNotUtf8IsPassedThroughOrRefused)
{
    serve("everyday");
    setFault("not-utf8");

    const Result result = search("is:pr is:open repo:harbourlight/ferry-api sort:updated-desc");

    // Versions that clean texts for the terminal (2.46) refuse it, older ones (2.23) do not look.
    if (result.status == 0) {
        EXPECT_THAT(result.output, HasSubstr("\"title\":\"\xFF\""));
        EXPECT_EQ(result.errors, "");
    } else {
        EXPECT_EQ(result.status, 1);
        EXPECT_THAT(result.errors, HasSubstr("transform: short source buffer"));
    }
}

TEST_F(GhFault, aDelayedAnswerComesLater)
{
    serve("everyday");
    setFault("delay=300@search");
    const auto start = std::chrono::steady_clock::now();

    const Result result = search("is:pr");

    EXPECT_EQ(result.status, 0);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(300));
}

TEST_F(GhFault, aFaultOfOneKindLeavesTheOthersAlone)
{
    serve("everyday");
    setFault("server-error@rules");

    EXPECT_EQ(status().status, 0);
    EXPECT_EQ(search("is:pr").status, 0);
    EXPECT_EQ(repositories().status, 0);
    EXPECT_EQ(rules({"REF_x"}).errors, "gh: Internal Server Error (HTTP 500)\n");
}

TEST_F(GhFault, aNumberedFaultStrikesOnceCountedFromWhereItWasSwitchedOn)
{
    serve("everyday");
    ASSERT_EQ(search("is:pr").status, 0);
    setFault("rate-limit@search#2");

    EXPECT_EQ(search("is:pr").status, 0);
    EXPECT_EQ(search("is:pr").status, 1);
    EXPECT_EQ(search("is:pr").status, 0);
}

TEST_F(GhFault, faultsCanBeSwitchedOffAgain)
{
    serve("everyday");
    setFault("unauthorized");
    EXPECT_EQ(search("is:pr").status, 1);

    server().setFaults({});

    EXPECT_EQ(search("is:pr").status, 0);
}

TEST_F(GhFault, aRepositoryOfAWrongTypeReachesTheReader)
{
    serve("everyday");
    setFault("wrong-type@repositories");

    const Result result = repositories();

    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, StartsWith(R"({"archived":"seven",)"));
}

}  // namespace
