#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include "Tarnwick/Persistence/JsonFile.h"

#include <QFile>
#include <QStandardPaths>

namespace Tarnwick {

std::filesystem::path PullRequestDiskCache::defaultFile()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return std::filesystem::path(QFile::encodeName(folder).toStdString()) / "dev.tarnwick.Tarnwick"
           / "pull-requests.json";
}

void PullRequestDiskCache::save(const CachedPullRequestSnapshot& snapshot) const
{
    JsonFile::save(snapshot, fileURL, "The pull requests");
}

std::optional<CachedPullRequestSnapshot> PullRequestDiskCache::load() const noexcept
{
    return JsonFile::load<CachedPullRequestSnapshot>(fileURL, largestFile);
}

}  // namespace Tarnwick
