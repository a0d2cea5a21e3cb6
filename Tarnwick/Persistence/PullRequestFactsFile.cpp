#include "Tarnwick/Persistence/PullRequestFactsFile.h"

#include "Tarnwick/Persistence/JsonFile.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace Tarnwick {
namespace {

/// Stored. Increase with every incompatible change.
constexpr std::int64_t currentVersion = 1;

struct Entry {
    PullRequestKit::PullRequestID id;
    PullRequestKit::PullRequestFacts facts;
};

struct Document {
    std::int64_t version = currentVersion;
    std::optional<PullRequestKit::Quota> quota;
    std::vector<Entry> pullRequests;
};

}  // namespace
}  // namespace Tarnwick

namespace PullRequestKit {

// Stored: do not rename.
template<>
struct EnumNames<ReviewDecision> {
    static constexpr auto names = enumNames<ReviewDecision>({
        {ReviewDecision::approved, "approved"},
        {ReviewDecision::changesRequested, "changesRequested"},
        {ReviewDecision::reviewRequired, "reviewRequired"},
    });
};

// Stored: do not rename.
template<>
struct Json::Fields<OwnReview> {
    static constexpr std::tuple table{
        field("verdict", &OwnReview::verdict),
        field("submittedAt", &OwnReview::submittedAt),
        field("commit", &OwnReview::commit),
    };
};

// Stored: do not rename.
template<>
struct Json::Fields<StackPlace> {
    static constexpr std::tuple table{
        field("number", &StackPlace::number),
        field("position", &StackPlace::position),
        field("size", &StackPlace::size),
    };
};

// Stored: do not rename.
template<>
struct Json::Fields<PullRequestFacts> {
    using Facts = PullRequestFacts;
    static constexpr std::tuple table{
        field("askedAt", &Facts::askedAt),
        field("updatedAt", &Facts::updatedAt),
        field("headCommit", &Facts::headCommit),
        field("reviewDecision", &Facts::reviewDecision),
        field("isInMergeQueue", &Facts::isInMergeQueue),
        field("mergeQueuePosition", &Facts::mergeQueuePosition),
        field("isAutoMergeEnabled", &Facts::isAutoMergeEnabled),
        field("ownReview", &Facts::ownReview),
        field("threadCount", &Facts::threadCount),
        field("openThreadCount", &Facts::openThreadCount),
        field("stackPlace", &Facts::stackPlace),
    };
};

// Stored: do not rename.
template<>
struct Json::Fields<Quota> {
    static constexpr std::tuple table{
        field("limit", &Quota::limit),
        field("remaining", &Quota::remaining),
        field("resetAt", &Quota::resetAt),
    };
};

// Stored: do not rename.
template<>
struct Json::Fields<Tarnwick::Entry> {
    static constexpr std::tuple table{
        field("id", &Tarnwick::Entry::id),
        field("facts", &Tarnwick::Entry::facts),
    };
};

// Stored: do not rename.
template<>
struct Json::Fields<Tarnwick::Document> {
    static constexpr std::tuple table{
        field("version", &Tarnwick::Document::version),
        field("quota", &Tarnwick::Document::quota),
        field("pullRequests", &Tarnwick::Document::pullRequests),
    };
};

}  // namespace PullRequestKit

namespace Tarnwick {

using namespace PullRequestKit;

PullRequestFactsFile PullRequestFactsFile::beside(const PullRequestDiskCache& cache)
{
    return {cache.fileURL.parent_path() / "pull-request-facts.json"};
}

void PullRequestFactsFile::save(const KeptFacts& kept) const
{
    Document document;
    document.quota = kept.quota;
    if (kept.facts) {
        document.pullRequests.reserve(kept.facts->size());
        for (const auto& [id, facts] : *kept.facts) {
            document.pullRequests.push_back({id, facts});
        }
    }
    JsonFile::save(document, path, "The facts of the pull requests");
}

KeptFacts PullRequestFactsFile::load() const noexcept
{
    auto document = JsonFile::loadVersion<Document>(currentVersion, path, largestFile);
    if (!document) {
        return {};
    }
    FactsByID facts;
    facts.reserve(document->pullRequests.size());
    for (Entry& entry : document->pullRequests) {
        facts.insert_or_assign(std::move(entry.id), std::move(entry.facts));
    }
    return {std::make_shared<const FactsByID>(std::move(facts)), document->quota};
}

}  // namespace Tarnwick
