#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include "PullRequestKit/Json/Reading.h"
#include "PullRequestKit/Json/Writing.h"
#include "Tarnwick/Persistence/Files.h"

#include <QFile>
#include <QStandardPaths>

#include <system_error>

namespace Tarnwick {

std::filesystem::path PullRequestDiskCache::defaultFile()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return std::filesystem::path(QFile::encodeName(folder).toStdString()) / "dev.tarnwick.Tarnwick"
           / "pull-requests.json";
}

void PullRequestDiskCache::save(const CachedPullRequestSnapshot& snapshot) const
{
    const std::string text = PullRequestKit::Json::encode(snapshot);
    try {
        Files::replace(fileURL, text, Files::ownerOnly);
    } catch (const std::system_error& error) {
        throw CacheWriteError(
            "The pull requests could not be kept in " + fileURL.string() + ": "
            + error.code().message() + ".");
    }
}

std::optional<CachedPullRequestSnapshot> PullRequestDiskCache::load() const noexcept
{
    try {
        const auto text = Files::read(fileURL, largestFile);
        if (text) {
            return PullRequestKit::Json::decode<CachedPullRequestSnapshot>(*text);
        }
    } catch (const std::exception&) {
        return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace Tarnwick
