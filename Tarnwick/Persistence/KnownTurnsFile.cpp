#include "Tarnwick/Persistence/KnownTurnsFile.h"

#include "PullRequestKit/TurnWording.h"
#include "Tarnwick/Persistence/JsonFile.h"

#include <cstdint>
#include <utility>

namespace Tarnwick {
namespace {

/// Stored. Increase with every incompatible change.
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
    JsonFile::save(document, path, "The known turns");
}

KnownTurns KnownTurnsFile::load() const noexcept
{
    auto document = JsonFile::loadVersion<TurnsDocument>(currentVersion, path, largestFile);
    return document
               ? KnownTurns{std::move(document->scope), document->updatedAt, std::move(document->pullRequests)}
               : KnownTurns();
}

}  // namespace Tarnwick
