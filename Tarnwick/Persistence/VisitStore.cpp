#include "Tarnwick/Persistence/VisitStore.h"

#include <utility>

namespace Tarnwick {

using PullRequestKit::Date;
using PullRequestKit::PullRequest;
using PullRequestKit::PullRequestID;

VisitStore::VisitStore(DefaultsStore& defaults, QString prefix, std::function<Date()> now)
    : _defaults(defaults)
    , _prefix(std::move(prefix))
    , _now(std::move(now))
{}

std::optional<Date> VisitStore::lastVisited(const PullRequestID& id) const
{
    return readDate(_defaults, keyOf(id));
}

void VisitStore::recordVisit(const PullRequestID& id)
{
    writeDate(_defaults, keyOf(id), _now());
}

bool VisitStore::isVisited(const PullRequest& pullRequest) const
{
    const auto visited = lastVisited(pullRequest.id);
    return visited && *visited >= pullRequest.updatedAt;
}

QString VisitStore::keyOf(const PullRequestID& id) const
{
    return _prefix + QString::fromStdString(id.storageKey());
}

}  // namespace Tarnwick
