#include "Tarnwick/Persistence/PullRequestFactsFile.h"

#include "Persistence/FileTrouble.h"

namespace {

using namespace TestSupport;

PullRequestFacts everyFact()
{
    PullRequestFacts facts;
    facts.askedAt = date("2024-05-01T12:30:00Z");
    facts.updatedAt = date("2024-05-01T12:00:00Z");
    facts.headCommit = "c2";
    facts.reviewDecision = ReviewDecision::reviewRequired;
    facts.isInMergeQueue = true;
    facts.mergeQueuePosition = 2;
    facts.isAutoMergeEnabled = true;
    facts.ownReview = {ReviewVerdict::commented, date("2024-05-01T11:00:00Z"), "c1"};
    facts.threadCount = 5;
    facts.openThreadCount = 3;
    facts.stackPlace = {9, 1, 4};
    return facts;
}

class PullRequestFactsFileTest : public testing::Test {
protected:
    Folder folder;
    PullRequestFactsFile file{folder / "pull-request-facts.json"};
    FactsByID facts{{makePullRequest(7).id, everyFact()}};

    KeptFacts some() const
    {
        return {
            std::make_shared<const FactsByID>(facts),
            Quota{5000, 312, date("2024-05-01T14:20:00Z")}};
    }
};

TEST_F(PullRequestFactsFileTest, bringsBackEveryFact)
{
    facts[makePullRequest(8).id].headCommit = "c3";
    file.save(some());
    EXPECT_EQ(*file.load().facts, facts);
    EXPECT_EQ(file.load().quota, some().quota);
}

TEST_F(PullRequestFactsFileTest, hasTheDocumentedForm)
{
    file.save(some());
    EXPECT_EQ(
        contentsOf(file.path),
        R"({"version":1,"quota":{"limit":5000,"remaining":312,"resetAt":"2024-05-01T14:20:00Z"},)"
        R"("pullRequests":[{"id":{"provider":"github","host":"github.com",)"
        R"("repository":"octo/tools","number":7},"facts":{"askedAt":"2024-05-01T12:30:00Z",)"
        R"("updatedAt":"2024-05-01T12:00:00Z","headCommit":"c2",)"
        R"("reviewDecision":"reviewRequired","isInMergeQueue":true,"mergeQueuePosition":2,)"
        R"("isAutoMergeEnabled":true,"ownReview":{"verdict":"commented",)"
        R"("submittedAt":"2024-05-01T11:00:00Z","commit":"c1"},"threadCount":5,)"
        R"("openThreadCount":3,"stackPlace":{"number":9,"position":1,"size":4}}}]})");
}

TEST_F(PullRequestFactsFileTest, isEmptyWithAValueOfAnotherType)
{
    file.save(some());
    std::string text = contentsOf(file.path);
    writeFile(file.path, text.replace(text.find("312"), 3, R"("a few")"));
    EXPECT_EQ(file.load().facts, nullptr);
    EXPECT_EQ(file.load().quota, std::nullopt);
}

}  // namespace
