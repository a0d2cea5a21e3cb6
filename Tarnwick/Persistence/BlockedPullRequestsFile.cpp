#include "Tarnwick/Persistence/BlockedPullRequestsFile.h"

#include "Tarnwick/Persistence/JsonFile.h"

#include <utility>

namespace Tarnwick {
namespace {

/// Stored. Increase with every incompatible change.
constexpr std::int64_t currentVersion = 1;

struct Document {
    std::int64_t version = currentVersion;
    PullRequestKit::Date updatedAt{};
    std::vector<BlockedPullRequests::Entry> blocked;
};

}  // namespace
}  // namespace Tarnwick

// Stored: do not rename.
template<>
struct PullRequestKit::Json::Fields<Tarnwick::BlockedPullRequests::Entry> {
    using Entry = Tarnwick::BlockedPullRequests::Entry;
    static constexpr std::tuple table{
        field("listedAt", &Entry::listedAt),
        field("pullRequest", &Entry::pullRequest),
    };
};

template<>
struct PullRequestKit::Json::Fields<Tarnwick::Document> {
    using Document = Tarnwick::Document;
    static constexpr std::tuple table{
        field("version", &Document::version),
        field("updatedAt", &Document::updatedAt),
        field("blocked", &Document::blocked),
    };
};

namespace Tarnwick {

BlockedPullRequestsFile BlockedPullRequestsFile::beside(const PullRequestDiskCache& cache)
{
    return {cache.fileURL.parent_path() / "blocked.json"};
}

void BlockedPullRequestsFile::save(const BlockedPullRequests& blocked) const
{
    const Document document{
        .version = currentVersion, .updatedAt = blocked.updatedAt, .blocked = blocked.entries};
    JsonFile::save(document, path, "The blocked pull requests");
}

BlockedPullRequests BlockedPullRequestsFile::load() const noexcept
{
    auto document = JsonFile::loadVersion<Document>(currentVersion, path, largestFile);
    return document ? BlockedPullRequests{document->updatedAt, std::move(document->blocked)}
                    : BlockedPullRequests();
}

}  // namespace Tarnwick
