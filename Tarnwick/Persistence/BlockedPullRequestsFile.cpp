#include "Tarnwick/Persistence/BlockedPullRequestsFile.h"

#include "PullRequestKit/Json/Reading.h"
#include "PullRequestKit/Json/Writing.h"
#include "Tarnwick/Persistence/Files.h"

#include <system_error>

namespace Tarnwick {
namespace {

/// Stored: counts up with each change that older programs would misread.
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
    try {
        Files::replace(path, PullRequestKit::Json::encode(document), Files::ownerOnly);
    } catch (const std::system_error& error) {
        throw CacheWriteError(
            "The blocked pull requests could not be kept in " + path.string() + ": "
            + error.code().message() + ".");
    }
}

BlockedPullRequests BlockedPullRequestsFile::load() const noexcept
{
    try {
        if (const auto text = Files::read(path, largestFile)) {
            auto document = PullRequestKit::Json::decode<Document>(*text);
            if (document.version == currentVersion) {
                return {document.updatedAt, std::move(document.blocked)};
            }
        }
    } catch (const std::exception&) {
        return {};
    }
    return {};
}

}  // namespace Tarnwick
