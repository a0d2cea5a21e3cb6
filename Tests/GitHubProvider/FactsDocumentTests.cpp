#include "GitHubProvider/FactsDocument.h"

#include "Support/PullRequests.h"

namespace {

using namespace GitHub;
using namespace TestSupport;

/// The document that asks for pull request 12 of this repository.
std::string documentFor(const std::string& repository, const UnknownFields& unknown = {})
{
    PullRequest pullRequest = makePullRequest(12);
    pullRequest.id.repository = repository;
    const std::vector<const PullRequest*> rows{&pullRequest};
    return factsArguments(rows, unknown).at(3);
}

TEST(FactsDocument, asksForTheFactsOfEachPullRequestUnderAnAlias)
{
    const PullRequest first = makePullRequest(12);
    PullRequest second = makePullRequest(7);
    second.id.repository = "harbourlight/ferry-api";
    const std::vector<const PullRequest*> rows{&first, &second};
    EXPECT_THAT(
        factsArguments(rows, {}),
        ElementsAre(
            "api",
            "graphql",
            "-f",
            "query=query {\n"
            "  p0: repository(owner:\"octo\", name:\"tools\") { nameWithOwner "
            "pullRequest(number:12) { ...facts } }\n"
            "  p1: repository(owner:\"harbourlight\", name:\"ferry-api\") { nameWithOwner "
            "pullRequest(number:7) { ...facts } }\n"
            "  rateLimit { cost limit remaining resetAt }\n"
            "}\n"
            "fragment facts on PullRequest {\n"
            "  headRefOid\n"
            "  reviewDecision\n"
            "  isInMergeQueue\n"
            "  mergeQueueEntry { position }\n"
            "  autoMergeRequest { enabledAt }\n"
            "  viewerLatestReview { state submittedAt commit { oid } }\n"
            "  reviewThreads(first:100) { totalCount nodes { isResolved } }\n"
            "  stackEntry { position }\n"
            "  stack { number size }\n"
            "}"));
}

TEST(FactsDocument, escapesNamesAsGraphQLTexts)
{
    EXPECT_THAT(
        documentFor("a\"b\\/c\n{d}\x01\xC3\xA9"),
        HasSubstr(R"(repository(owner:"a\"b\\", name:"c\n{d}\u0001é"))"));
    EXPECT_THAT(documentFor("a/b/c"), HasSubstr(R"((owner:"a", name:"b/c"))"));
    EXPECT_THAT(documentFor(std::string("a/\0b", 4)), HasSubstr(R"(name:"\u0000b")"));
}

TEST(FactsDocument, leavesOutWhatTheHostDoesNotKnow)
{
    UnknownFields unknown;
    for (std::size_t place = 0; place < factsFields.size(); ++place) {
        const std::string_view name = factsFields[place].name;
        unknown.set(place, name == "stack" || name == "rateLimit");
    }
    const std::string document = documentFor("octo/tools", unknown);
    EXPECT_THAT(document, Not(HasSubstr("stack {")));
    EXPECT_THAT(document, HasSubstr("stackEntry {"));
    EXPECT_THAT(document, Not(HasSubstr("rateLimit")));
}

TEST(FactsDocument, thereAreNoFactsWithoutWhatTheyRestOn)
{
    EXPECT_TRUE(haveFacts({}));
    for (std::size_t place = 0; place < factsFields.size(); ++place) {
        UnknownFields unknown;
        unknown.set(place);
        const std::string_view name = factsFields[place].name;
        const bool isNeeded =
            name == "headRefOid" || name == "reviewDecision" || name == "reviewThreads";
        EXPECT_EQ(haveFacts(unknown), !isNeeded) << name;
    }
}

TEST(FactsDocument, hasNoPlaceForWhatWouldSpoilItForTheOthers)
{
    const auto can = [](std::string repository, std::int64_t number) {
        return canBeAsked({"github", "git.example", std::move(repository), number});
    };
    EXPECT_TRUE(can("octo/tools", 1));
    EXPECT_TRUE(can("octo/tools", 2'147'483'647));
    EXPECT_FALSE(can("octo/tools", 2'147'483'648));
    EXPECT_FALSE(can("octo/tools", 0));
    EXPECT_FALSE(can("tools", 1));
    EXPECT_FALSE(can("octo/" + std::string(100'000, 'x'), 1));
}

}  // namespace
