#include "GitHubProvider/CheckContext.h"

#include "PullRequestKit/Json/Reading.h"
#include "Support/Errors.h"

#include <vector>

namespace {

using namespace GitHub;
using PullRequestKit::ProgressCount;

std::vector<CheckContext> contexts(std::string_view json)
{
    return PullRequestKit::Json::decode<std::vector<CheckContext>>(json);
}

ProgressCount count(std::string_view json)
{
    return summarizeChecks(contexts(json)).count;
}

TEST(CheckContext, readsEveryFieldOfACheckRun)
{
    const auto read =
        contexts(R"([{"__typename": "CheckRun", "name": "build", "status": "COMPLETED",
        "conclusion": "SUCCESS", "databaseId": 41231231231, "startedAt": "2024-05-01T10:00:00Z",
        "completedAt": "2024-05-01T10:05:00Z", "checkSuite": {"app": {"id": "A_1"}, "workflowRun":
        {"databaseId": 7, "runAttempt": 2, "file": {"path": ".github/workflows/ci.yml"}}}}])");
    CheckContext expected;
    expected.typeName = "CheckRun";
    expected.name = "build";
    expected.status = "COMPLETED";
    expected.conclusion = "SUCCESS";
    expected.databaseId = 41231231231;
    expected.startedAt = PullRequestKit::parseDate("2024-05-01T10:00:00Z");
    expected.completedAt = PullRequestKit::parseDate("2024-05-01T10:05:00Z");
    expected.checkSuite = {
        CheckContext::App{"A_1"},
        CheckContext::WorkflowRun{7, 2, CheckContext::WorkflowFile{".github/workflows/ci.yml"}}};
    EXPECT_THAT(read, testing::ElementsAre(expected));
}

TEST(CheckContext, readsEveryFieldOfAStatus)
{
    const auto read = contexts(R"([{"__typename": "StatusContext", "context": "ci/deploy",
        "state": "PENDING", "createdAt": "2024-05-01T10:00:00Z"}])");
    CheckContext expected;
    expected.typeName = "StatusContext";
    expected.context = "ci/deploy";
    expected.state = "PENDING";
    expected.createdAt = PullRequestKit::parseDate("2024-05-01T10:00:00Z");
    EXPECT_THAT(read, testing::ElementsAre(expected));
}

TEST(CheckContext, aWorkflowRunWithoutAttemptIsRefused)
{
    const auto read = [] { contexts(R"([{"checkSuite": {"workflowRun": {"databaseId": 7}}}])"); };
    EXPECT_EQ(TestSupport::pathOf(read), "[0].checkSuite.workflowRun.runAttempt");
}

TEST(CheckContext, identityOfACheckRunHasNameAppAndWorkflowPath)
{
    const auto read = contexts(R"([{"__typename": "CheckRun", "name": "build", "checkSuite":
        {"app": {"id": "A_1"}, "workflowRun": {"runAttempt": 1, "file": {"path": "ci.yml"}}}},
        {"__typename": "CheckRun", "name": "build", "checkSuite": {"workflowRun": {"runAttempt": 1}}},
        {"__typename": "CheckRun", "name": "build"}])");
    EXPECT_EQ(read[0].identity(), (CheckContext::Identity{"CheckRun", "build", "A_1", "ci.yml"}));
    const CheckContext::Identity bare{"CheckRun", "build", std::nullopt, std::nullopt};
    EXPECT_EQ(read[1].identity(), bare);
    EXPECT_EQ(read[2].identity(), bare);
}

TEST(CheckContext, identityOfAStatusHasItsContextOnly)
{
    const auto read = contexts(R"([{"__typename": "StatusContext", "context": "ci/deploy",
        "checkSuite": {"app": {"id": "A_1"}}}])");
    EXPECT_EQ(
        read[0].identity(),
        (CheckContext::Identity{"StatusContext", "ci/deploy", std::nullopt, std::nullopt}));
}

TEST(CheckContext, equalIdentitiesHaveEqualHashes)
{
    const std::string name = "build";
    const std::string sameName = "build";
    const CheckContext::Identity left{"CheckRun", name, "A_1", std::nullopt};
    const CheckContext::Identity right{"CheckRun", sameName, "A_1", std::nullopt};
    EXPECT_EQ(left, right);
    EXPECT_EQ(
        std::hash<CheckContext::Identity>{}(left), std::hash<CheckContext::Identity>{}(right));
}

TEST(CheckContext, whatHasNoTypeOrNameHasNoIdentity)
{
    for (const CheckContext& context : contexts(R"([{}, {"name": "a"},
             {"__typename": "Other", "name": "a", "context": "a"},
             {"__typename": "checkrun", "name": "a"},
             {"__typename": "CheckRun", "context": "a"},
             {"__typename": "StatusContext", "name": "a"}])")) {
        EXPECT_EQ(context.identity(), std::nullopt);
    }
}

struct NewerCase {
    const char* name;
    const char* first;
    const char* second;
    bool isFirstNewer;
    bool isSecondNewer;
};

TEST(NewerCheckContext, isDecidedByTheFirstRuleThatTells)
{
    const std::vector<NewerCase> cases{
        {"largerDatabaseIdWinsOverLaterTime",
         R"({"databaseId": 2, "startedAt": "2024-05-01T10:00:00Z"})",
         R"({"databaseId": 1, "startedAt": "2024-05-01T11:00:00Z"})",
         true,
         false},
        {"largerRunIdWinsOverLargerAttempt",
         R"({"databaseId": 1, "checkSuite": {"workflowRun": {"databaseId": 9, "runAttempt": 1}}})",
         R"({"databaseId": 1, "checkSuite": {"workflowRun": {"databaseId": 8, "runAttempt": 5}}})",
         true,
         false},
        {"largerAttemptOfTheSameRunWinsOverLaterTime",
         R"({"startedAt": "2024-05-01T10:00:00Z",
                "checkSuite": {"workflowRun": {"databaseId": 9, "runAttempt": 2}}})",
         R"({"startedAt": "2024-05-01T11:00:00Z",
                "checkSuite": {"workflowRun": {"databaseId": 9, "runAttempt": 1}}})",
         true,
         false},
        {"attemptsOfRunsWithoutIdDoNotTell",
         R"({"startedAt": "2024-05-01T10:00:00Z", "checkSuite": {"workflowRun": {"runAttempt": 2}}})",
         R"({"startedAt": "2024-05-01T11:00:00Z", "checkSuite": {"workflowRun": {"runAttempt": 1}}})",
         false,
         true},
        {"oneDatabaseIdAloneDoesNotTell",
         R"({"databaseId": 5, "createdAt": "2024-05-01T10:00:00Z"})",
         R"({"createdAt": "2024-05-01T11:00:00Z"})",
         false,
         true},
        {"startedComesBeforeCompletedAndCreated",
         R"({"startedAt": "2024-05-01T10:00:00Z", "completedAt": "2024-05-01T13:00:00Z",
                "createdAt": "2024-05-01T14:00:00Z"})",
         R"({"completedAt": "2024-05-01T11:00:00Z", "createdAt": "2024-05-01T09:00:00Z"})",
         false,
         true},
        {"oneTimeAloneDoesNotTell",
         R"({"startedAt": "2024-05-01T10:00:00Z"})",
         R"({})",
         false,
         false},
        {"aFullTieIsNotNewer",
         R"({"databaseId": 1, "startedAt": "2024-05-01T10:00:00Z"})",
         R"({"databaseId": 1, "startedAt": "2024-05-01T10:00:00Z"})",
         false,
         false}};
    for (const NewerCase& each : cases) {
        SCOPED_TRACE(each.name);
        using PullRequestKit::Json::decode;
        const auto first = decode<CheckContext>(each.first);
        const auto second = decode<CheckContext>(each.second);
        EXPECT_EQ(first.isNewer(second), each.isFirstNewer);
        EXPECT_EQ(second.isNewer(first), each.isSecondNewer);
    }
}

TEST(EffectiveContexts, looseEntriesComeFirstAndAllStay)
{
    const auto read = contexts(R"([{"__typename": "StatusContext", "context": "a"},
        {"name": "x"}, {"__typename": "StatusContext", "context": "a"}, {"name": "x"}])");
    EXPECT_THAT(effectiveContexts(read), testing::ElementsAre(&read[1], &read[3], &read[0]));
}

TEST(EffectiveContexts, onAFullTieTheFirstSeenStays)
{
    const auto read = contexts(R"([{"__typename": "CheckRun", "name": "a", "conclusion": "FAILURE"},
        {"__typename": "CheckRun", "name": "a", "conclusion": "SUCCESS"}])");
    EXPECT_THAT(effectiveContexts(read), testing::ElementsAre(&read[0]));
}

TEST(ChecksCount, jobThatFailedOnAttemptOneAndPassedOnAttemptTwoCountsOnceAsPassed)
{
    EXPECT_EQ(
        count(R"([{"__typename": "CheckRun", "name": "test", "conclusion": "FAILURE",
                "checkSuite": {"app": {"id": "A"}, "workflowRun": {"databaseId": 5, "runAttempt": 1}}},
            {"__typename": "CheckRun", "name": "test", "conclusion": "SUCCESS",
                "checkSuite": {"app": {"id": "A"}, "workflowRun": {"databaseId": 5, "runAttempt": 2}}}])"),
        (ProgressCount{.completed = 1, .total = 1, .failed = 0}));
}

TEST(ChecksCount, theLaterOfTwoStatusesWithTheSameContextCounts)
{
    constexpr const char* later = R"({"__typename": "StatusContext", "context": "ci",
        "state": "FAILURE", "createdAt": "2024-05-01T11:00:00Z"})";
    constexpr const char* earlier = R"({"__typename": "StatusContext", "context": "ci",
        "state": "SUCCESS", "createdAt": "2024-05-01T10:00:00Z"})";
    const ProgressCount failed{.completed = 0, .total = 1, .failed = 1};
    EXPECT_EQ(count(std::string("[") + later + "," + earlier + "]"), failed);
    EXPECT_EQ(count(std::string("[") + earlier + "," + later + "]"), failed);
}

TEST(ChecksCount, runsOfTheSameNameFromDifferentAppsAreTwoChecks)
{
    EXPECT_EQ(
        count(R"([{"__typename": "CheckRun", "name": "test", "conclusion": "SUCCESS",
                "checkSuite": {"app": {"id": "A"}}},
            {"__typename": "CheckRun", "name": "test", "conclusion": "FAILURE",
                "checkSuite": {"app": {"id": "B"}}}])"),
        (ProgressCount{.completed = 1, .total = 2, .failed = 1}));
}

TEST(ChecksCount, runsOfTheSameNameFromDifferentWorkflowsAreTwoChecks)
{
    EXPECT_EQ(
        count(R"([{"__typename": "CheckRun", "name": "test", "conclusion": "SUCCESS", "checkSuite":
                {"workflowRun": {"databaseId": 1, "runAttempt": 1, "file": {"path": "a.yml"}}}},
            {"__typename": "CheckRun", "name": "test", "conclusion": "SUCCESS", "checkSuite":
                {"workflowRun": {"databaseId": 2, "runAttempt": 1, "file": {"path": "b.yml"}}}}])"),
        (ProgressCount{.completed = 2, .total = 2, .failed = 0}));
}

TEST(ChecksCount, anUnknownTypeCountsInTheTotalAsPending)
{
    EXPECT_EQ(
        count(R"([{"__typename": "Novelty"}])"),
        (ProgressCount{.completed = 0, .total = 1, .failed = 0}));
}

TEST(ChecksCount, noContextsAreZeroOfZero)
{
    EXPECT_EQ(count("[]"), (ProgressCount{.completed = 0, .total = 0, .failed = 0}));
}

TEST(ChecksCount, everyConclusionButThePassingOnesCountsAsFailed)
{
    for (const char* const passing : {"SUCCESS", "NEUTRAL", "SKIPPED"}) {
        EXPECT_EQ(
            count(std::string(R"([{"conclusion": ")") + passing + R"(", "state": "ERROR"}])"),
            (ProgressCount{.completed = 1, .total = 1, .failed = 0}))
            << passing;
    }
    for (const char* const failing :
         {"FAILURE", "CANCELLED", "TIMED_OUT", "ACTION_REQUIRED", "STALE", "NOVELTY", "success"}) {
        EXPECT_EQ(
            count(std::string(R"([{"conclusion": ")") + failing + R"(", "state": "SUCCESS"}])"),
            (ProgressCount{.completed = 0, .total = 1, .failed = 1}))
            << failing;
    }
}

TEST(ChecksCount, statesCountWhereThereIsNoConclusion)
{
    EXPECT_EQ(
        count(R"([{"state": "SUCCESS"}, {"state": "ERROR"}, {"state": "FAILURE"},
            {"state": "PENDING"}, {"state": "EXPECTED"}, {"status": "IN_PROGRESS"}])"),
        (ProgressCount{.completed = 1, .total = 6, .failed = 2}));
}

}  // namespace
