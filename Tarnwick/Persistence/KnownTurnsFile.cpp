#include "Tarnwick/Persistence/KnownTurnsFile.h"

#include "PullRequestKit/Json/Reading.h"
#include "PullRequestKit/Json/Writing.h"
#include "PullRequestKit/TurnWording.h"
#include "Tarnwick/Persistence/Files.h"

#include <cstdint>
#include <system_error>
#include <utility>

namespace Tarnwick {
namespace {

/// Stored: counts up with each change that older programs would misread.
constexpr std::int64_t currentVersion = 1;

struct TurnsDocument {
    std::int64_t version = currentVersion;
    PullRequestKit::Date updatedAt{};
    std::string scope;
    std::vector<KnownTurns::Entry> pullRequests;
};

}  // namespace
}  // namespace Tarnwick

// Stored: do not rename.
template<>
struct PullRequestKit::Json::Fields<Tarnwick::KnownTurns::Entry> {
    using Entry = Tarnwick::KnownTurns::Entry;
    static constexpr std::tuple table{
        field("id", &Entry::id),
        field("listedAt", &Entry::listedAt),
        field("whose", &Entry::whose),
        field("toldHead", &Entry::toldHead),
    };
};

// Stored: do not rename.
template<>
struct PullRequestKit::Json::Fields<Tarnwick::TurnsDocument> {
    using Document = Tarnwick::TurnsDocument;
    static constexpr std::tuple table{
        field("version", &Document::version),
        field("updatedAt", &Document::updatedAt),
        field("scope", &Document::scope),
        field("pullRequests", &Document::pullRequests),
    };
};

namespace Tarnwick {

KnownTurnsFile KnownTurnsFile::beside(const PullRequestDiskCache& cache)
{
    return {cache.fileURL.parent_path() / "turns.json"};
}

void KnownTurnsFile::save(const KnownTurns& turns) const
{
    const TurnsDocument document{
        .version = currentVersion,
        .updatedAt = turns.updatedAt,
        .scope = turns.scope,
        .pullRequests = turns.entries};
    try {
        Files::replace(path, PullRequestKit::Json::encode(document), Files::ownerOnly);
    } catch (const std::system_error& error) {
        throw CacheWriteError(
            "Whose turn it was could not be kept in " + path.string() + ": "
            + error.code().message() + ".");
    }
}

KnownTurns KnownTurnsFile::load() const noexcept
{
    try {
        if (const auto text = Files::read(path, largestFile)) {
            auto document = PullRequestKit::Json::decode<TurnsDocument>(*text);
            if (document.version == currentVersion) {
                return {
                    std::move(document.scope),
                    document.updatedAt,
                    std::move(document.pullRequests)};
            }
        }
    } catch (const std::exception&) {
        return {};
    }
    return {};
}

}  // namespace Tarnwick
