#include "GitHubProvider/FactsReading.h"

#include "Support/PullRequests.h"

namespace {

using namespace GitHub;
using namespace TestSupport;

const std::string full =
    R"("headRefOid":"abc1","reviewDecision":"APPROVED","isInMergeQueue":true,)"
    R"("mergeQueueEntry":{"position":2},"autoMergeRequest":{"enabledAt":"2024-05-01T09:00:00Z"},)"
    R"("viewerLatestReview":{"state":"CHANGES_REQUESTED","submittedAt":"2024-05-01T08:00:00Z",)"
    R"("commit":{"oid":"abc0"}},"reviewThreads":{"totalCount":3,"nodes":[{"isResolved":true},)"
    R"({"isResolved":false},{"isResolved":false}]},"stackEntry":{"position":1},)"
    R"("stack":{"number":5,"size":4})";

const std::string least =
    R"("headRefOid":"abc1","reviewDecision":null,"reviewThreads":{"totalCount":0,"nodes":[]})";

std::string row(const std::string& pullRequest, const std::string& repository = "octo/tools")
{
    return R"({"nameWithOwner":")" + repository + R"(","pullRequest":{)" + pullRequest + "}}";
}

std::string withData(const std::string& members)
{
    return R"({"data":{)" + members + "}}";
}

class FactsReading : public testing::Test {
protected:
    FactsPage readPage(const std::string& answer) const
    {
        const std::vector<const PullRequest*> rows{&first, &second};
        return readFacts(answer, rows, askedAt);
    }

    /// What is read of the first row.
    std::optional<PullRequestFacts> readRow(const std::string& members) const
    {
        const FactsPage page = readPage(withData(R"("p0":)" + row(members)));
        const auto found = page.facts.find(first.id);
        return found != page.facts.end() ? std::optional(found->second) : std::nullopt;
    }

    /// The full row with one value replaced; the values of the row hold no other such key.
    std::optional<PullRequestFacts> readWith(
        const std::string& key, const std::string& from, const std::string& to) const
    {
        std::string text = full;
        const std::string member = "\"" + key + "\":" + from;
        const std::size_t place = text.find(member);
        EXPECT_NE(place, std::string::npos) << member;
        return readRow(text.replace(place, member.size(), "\"" + key + "\":" + to));
    }

    PullRequest first = makePullRequest(1);
    PullRequest second = makePullRequest(2);
    Date askedAt = date("2024-05-01T10:00:00Z");
};

TEST_F(FactsReading, takesEveryValue)
{
    PullRequestFacts expected;
    expected.askedAt = askedAt;
    expected.updatedAt = first.updatedAt;
    expected.headCommit = "abc1";
    expected.reviewDecision = ReviewDecision::approved;
    expected.isInMergeQueue = true;
    expected.mergeQueuePosition = 2;
    expected.isAutoMergeEnabled = true;
    expected.ownReview =
        OwnReview{ReviewVerdict::changesRequested, date("2024-05-01T08:00:00Z"), "abc0"};
    expected.threadCount = 3;
    expected.openThreadCount = 2;
    expected.stackPlace = StackPlace{5, 1, 4};
    EXPECT_EQ(readRow(full), expected);
}

TEST_F(FactsReading, needsNoMoreThanHeadDecisionAndThreads)
{
    PullRequestFacts expected;
    expected.askedAt = askedAt;
    expected.updatedAt = first.updatedAt;
    expected.headCommit = "abc1";
    EXPECT_EQ(readRow(least), expected);
}

TEST_F(FactsReading, yieldsNoFactsWhereWhatTheyRestOnCannotBeRead)
{
    EXPECT_EQ(readWith("headRefOid", "\"abc1\"", "7"), std::nullopt);
    EXPECT_EQ(readWith("headRefOid", "\"abc1\"", "\"\""), std::nullopt);
    EXPECT_EQ(readWith("headRefOid", "\"abc1\"", "null"), std::nullopt);
    EXPECT_EQ(readWith("reviewDecision", "\"APPROVED\"", "true"), std::nullopt);
    EXPECT_EQ(readWith("reviewDecision", "\"APPROVED\"", "\"PERHAPS\""), std::nullopt);
    EXPECT_EQ(readWith("totalCount", "3", "\"3\""), std::nullopt);
    EXPECT_EQ(readWith("totalCount", "3", "-1"), std::nullopt);
    EXPECT_EQ(readWith("isResolved", "true", "null"), std::nullopt);
    EXPECT_EQ(readWith("isResolved", "true", "\"yes\""), std::nullopt);
    for (const char* key : {"headRefOid", "reviewDecision", "reviewThreads"}) {
        std::string text = full;
        const std::string quoted = "\"" + std::string(key) + "\"";
        EXPECT_EQ(readRow(text.replace(text.find(quoted), quoted.size(), "\"else\"")), std::nullopt)
            << key;
    }
}

TEST_F(FactsReading, countsAnyOtherValueOfAWrongKindAsAbsent)
{
    const PullRequestFacts known = readRow(full).value();
    const auto without = [&](auto change) {
        PullRequestFacts facts = known;
        change(facts);
        return facts;
    };
    EXPECT_EQ(readWith("isInMergeQueue", "true", "false"), without([](PullRequestFacts& facts) {
                  facts.isInMergeQueue = false;
                  facts.mergeQueuePosition.reset();
              }));
    EXPECT_EQ(readWith("isInMergeQueue", "true", "1"), known) << "the entry says so as well";
    EXPECT_EQ(
        readWith("mergeQueueEntry", "{\"position\":2}", "[2]"),
        without([](PullRequestFacts& facts) { facts.mergeQueuePosition.reset(); }));
    for (const char* position : {"0", "\"2\"", "2.5", "null", "1e300"}) {
        EXPECT_EQ(
            readWith(
                "mergeQueueEntry",
                "{\"position\":2}",
                R"({"position":)" + std::string(position) + "}"),
            without([](PullRequestFacts& facts) { facts.mergeQueuePosition.reset(); }))
            << position;
    }
    EXPECT_EQ(
        readWith("autoMergeRequest", R"({"enabledAt":"2024-05-01T09:00:00Z"})", "true"),
        without([](PullRequestFacts& facts) { facts.isAutoMergeEnabled = false; }));
    EXPECT_EQ(
        readWith("state", "\"CHANGES_REQUESTED\"", "\"LOVED\""),
        without([](PullRequestFacts& facts) { facts.ownReview.reset(); }));
    EXPECT_EQ(
        readWith("submittedAt", "\"2024-05-01T08:00:00Z\"", "\"yesterday\""),
        without([](PullRequestFacts& facts) { facts.ownReview->submittedAt.reset(); }));
    EXPECT_EQ(readWith("commit", R"({"oid":"abc0"})", "null"), without([](PullRequestFacts& facts) {
                  facts.ownReview->commit.reset();
              }));
    EXPECT_EQ(readWith("commit", R"({"oid":"abc0"})", "{}"), without([](PullRequestFacts& facts) {
                  facts.ownReview.reset();
              }));
    EXPECT_EQ(readWith("size", "4", "\"4\""), without([](PullRequestFacts& facts) {
                  facts.stackPlace.reset();
              }));
    EXPECT_EQ(
        readWith("stackEntry", "{\"position\":1}", "null"),
        without([](PullRequestFacts& facts) { facts.stackPlace.reset(); }));
}

TEST_F(FactsReading, knowsThreadsBeyondTheHundred)
{
    std::string threads;
    for (int thread = 0; thread < 100; ++thread) {
        threads += threads.empty() ? "" : ",";
        threads += R"({"isResolved":true})";
    }
    const auto facts = readRow(
        R"("headRefOid":"abc1","reviewDecision":null,"reviewThreads":{"totalCount":231,"nodes":[)"
        + threads + "]}");
    ASSERT_TRUE(facts.has_value());
    EXPECT_EQ(facts->threadCount, 231);
    EXPECT_EQ(facts->openThreadCount, 0);
}

TEST_F(FactsReading, takesHostileTextsForTexts)
{
    const auto facts = readRow(R"("headRefOid":"\u202E\u0000\u001B[31m","reviewDecision":null,)"
                               R"("reviewThreads":{"totalCount":0,"nodes":[]})");
    ASSERT_TRUE(facts.has_value());
    EXPECT_EQ(facts->headCommit, std::string("\u202E\0\x1B[31m", 9));
}

TEST_F(FactsReading, aNullPullRequestCostsTheOthersNothing)
{
    for (const std::string& other :
         {std::string("null"),
          std::string("7"),
          std::string("[]"),
          std::string(R"({"nameWithOwner":"octo/tools","pullRequest":null})"),
          std::string(R"({"nameWithOwner":7,"pullRequest":{)") + full + "}}",
          std::string(R"({"pullRequest":{)") + full + "}}"}) {
        const FactsPage page = readPage(
            R"({"data":{"p0":)" + other + R"(,"p1":)" + row(least)
            + R"(},"errors":[{"type":"NOT_FOUND","path":["p0"],"message":"Could not resolve"}]})");
        EXPECT_TRUE(page.hasData);
        ASSERT_EQ(page.facts.size(), 1U) << other;
        EXPECT_TRUE(page.facts.contains(second.id)) << other;
    }
}

TEST_F(FactsReading, ofARenamedRepositoryBelongToTheNameThatTheAnswerTells)
{
    const FactsPage page = readPage(withData(R"("p0":)" + row(least, "octo/new-tools")));
    ASSERT_EQ(page.facts.size(), 1U);
    PullRequestID renamed = first.id;
    renamed.repository = "octo/new-tools";
    EXPECT_TRUE(page.facts.contains(renamed));
}

TEST_F(FactsReading, askedForUnderTheirOwnNameGoBeforeThoseOfARenamedRepository)
{
    first.id.repository = "octo/old-tools";
    second = makePullRequest(1);
    second.updatedAt = date("2024-06-01T10:00:00Z");
    for (const bool isOldFirst : {true, false}) {
        const std::vector<const PullRequest*> rows =
            isOldFirst ? std::vector<const PullRequest*>{&first, &second}
                       : std::vector<const PullRequest*>{&second, &first};
        const FactsPage page =
            readFacts(withData(R"("p0":)" + row(least) + R"(,"p1":)" + row(least)), rows, askedAt);
        ASSERT_EQ(page.facts.size(), 1U);
        EXPECT_EQ(page.facts.at(second.id).updatedAt, second.updatedAt);
    }
}

TEST_F(FactsReading, takesTheQuota)
{
    const auto quota = [&](const std::string& limit) {
        return readPage(withData(R"("p0":null,"rateLimit":)" + limit)).quota;
    };
    EXPECT_EQ(
        quota(R"({"cost":1,"limit":5000,"remaining":312,"resetAt":"2024-05-01T14:20:00Z"})"),
        (Quota{5000, 312, date("2024-05-01T14:20:00Z")}));
    for (const char* text :
         {"null",
          "7",
          "{}",
          R"({"limit":0,"remaining":0,"resetAt":"2024-05-01T14:20:00Z"})",
          R"({"limit":5000,"remaining":-1,"resetAt":"2024-05-01T14:20:00Z"})",
          R"({"limit":5000,"remaining":312,"resetAt":"soon"})",
          R"({"limit":"5000","remaining":312,"resetAt":"2024-05-01T14:20:00Z"})"}) {
        EXPECT_EQ(quota(text), std::nullopt) << text;
    }
}

TEST_F(FactsReading, hasNoDataWhereThereIsNone)
{
    for (const std::string& text :
         {std::string(),
          std::string("<html>"),
          std::string("[]"),
          std::string("null"),
          std::string("{}"),
          std::string(R"({"data":null})"),
          std::string(R"({"data":[]})"),
          std::string(R"({"data":{"p0":"\xFF"}})"),
          R"({"data":)" + std::string(5000, '[') + std::string(5000, ']') + "}",
          withData(R"("p0":)" + row(full)).substr(0, 200)}) {
        const FactsPage page = readPage(text);
        EXPECT_FALSE(page.hasData) << text;
        EXPECT_THAT(page.facts, IsEmpty());
    }
}

/// The names of the fields that an answer with these errors says are unknown.
std::vector<std::string_view> unknownAfter(const std::string& errors)
{
    const FactsPage page = readFacts(R"({"errors":)" + errors + "}", {}, Date());
    std::vector<std::string_view> names;
    for (std::size_t place = 0; place < factsFields.size(); ++place) {
        if (page.unknownFields[place]) {
            names.push_back(factsFields[place].name);
        }
    }
    return names;
}

TEST(FactsErrors, nameTheFieldsThatTheHostDoesNotKnow)
{
    using testing::ElementsAre;
    EXPECT_THAT(
        unknownAfter(R"([{"path":["fragment facts","stackEntry"],"message":)"
                     R"("Field 'stackEntry' doesn't exist on type 'PullRequest'"},)"
                     R"({"message":"Field 'stack' doesn't exist on type 'PullRequest'"},)"
                     R"({"message":"Field 'rateLimit' doesn't exist on type 'Query'"}])"),
        ElementsAre("stackEntry", "stack", "rateLimit"));
    EXPECT_THAT(
        unknownAfter(R"([{"path":["fragment facts","stackEntry","position"],"message":)"
                     R"("Field 'position' doesn't exist on type 'StackEntry'"}])"),
        ElementsAre("stackEntry"))
        << "what is inside of a field goes with it";
    EXPECT_THAT(
        unknownAfter(R"([{"message":"Field 'enabledAt' doesn't exist on type 'AutoMerge'"}])"),
        ElementsAre("autoMergeRequest"));
    EXPECT_THAT(
        unknownAfter(
            R"([{"message":"Field 'other' doesn't exist on type 'PullRequest'"},7,{"message":7},)"
            R"({"message":"Something went wrong"},{"message":"' doesn't exist on type 'Field '"}])"),
        IsEmpty());
}

}  // namespace
