#include "Tarnwick/Model/FactsQuestions.h"

#include "Tarnwick/Async/Worker.h"
#include "Tarnwick/Model/WantedFacts.h"

#include <QPointer>

#include <exception>
#include <optional>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

std::unordered_set<PullRequestID> identities(const std::vector<PullRequest>& pullRequests)
{
    std::unordered_set<PullRequestID> found;
    found.reserve(pullRequests.size());
    for (const PullRequest& pullRequest : pullRequests) {
        found.insert(pullRequest.id);
    }
    return found;
}

}  // namespace

FactsQuestions::FactsQuestions(Sources sources)
    : _sources(std::move(sources))
    , _facts(std::make_shared<const FactsByID>())
{
    _done.start();
    _answered = _done.future();
    _done.finish();
}

FactsQuestions::~FactsQuestions()
{
    cancel();
}

const PullRequestFacts* FactsQuestions::of(const PullRequestID& id) const
{
    const auto found = _facts->find(id);
    return found == _facts->end() ? nullptr : &found->second;
}

void FactsQuestions::setListed(std::shared_ptr<const std::vector<PullRequest>> listed)
{
    _listed = std::move(listed);
    _asked.clear();
    _isRefreshed = true;
    forgetUnlisted();
    if (_sources.isUseful()) {
        ask();
    } else {
        settle(false);
    }
}

void FactsQuestions::forgetUnlisted()
{
    if (_facts->empty()) {
        return;
    }
    const auto known = identities(*_listed);
    FactsByID kept = *_facts;
    if (std::erase_if(kept, [&](const auto& entry) { return !known.contains(entry.first); }) > 0) {
        setFacts(std::move(kept));
    }
}

void FactsQuestions::setFacts(FactsByID facts)
{
    _facts = std::make_shared<const FactsByID>(std::move(facts));
    _isUnsaved = true;
}

void FactsQuestions::askWhereUseful()
{
    if (_sources.isUseful()) {
        ask();
    }
}

void FactsQuestions::ask()
{
    if (_listed && !_isAsking) {
        _isAsking = true;
        _done = QPromise<void>();
        _done.start();
        _answered = _done.future();
        _task.start([this](std::stop_token stopToken) { return askAll(std::move(stopToken)); });
    }
}

void FactsQuestions::cancel()
{
    _task.cancel();
    finish();
}

void FactsQuestions::stop()
{
    cancel();
    save();
}

void FactsQuestions::save()
{
    if (std::exchange(_isUnsaved, false)) {
        _sources.save(_facts);
    }
}

void FactsQuestions::settle(bool hitSecondaryLimit)
{
    save();
    Q_EMIT settled(hitSecondaryLimit, std::exchange(_isRefreshed, false));
}

void FactsQuestions::finish()
{
    if (std::exchange(_isAsking, false)) {
        _done.finish();
    }
}

QCoro::Task<> FactsQuestions::askAll(std::stop_token stopToken)
{
    const QPointer<FactsQuestions> self(this);
    bool hitSecondaryLimit = false;
    while (!hitSecondaryLimit) {
        auto wanting = wantingFacts(_sources.rows(), *_facts, _asked, _sources.clock->now());
        if (wanting.empty()) {
            break;
        }
        _asked.merge(identities(wanting));
        std::optional<FactsAnswer> answer;
        try {
            auto asking =
                onWorker([provider = _sources.provider, wanting = std::move(wanting), stopToken] {
                    return provider->facts(wanting, stopToken);
                });
            answer = co_await asking;
        } catch (const std::exception&) {
            // Cancelled, or the provider failed; both leave the facts out.
            answer.reset();
        }
        if (!self || stopToken.stop_requested()) {
            co_return;
        }
        if (!answer) {
            break;
        }
        hitSecondaryLimit = answer->hitSecondaryLimit;
        take(*std::move(answer));
    }
    forgetOutdated();
    finish();
    settle(hitSecondaryLimit);
}

/// Done last: until then the earlier facts keep rows from moving back and forth.
void FactsQuestions::forgetOutdated()
{
    std::vector<PullRequestID> outdated;
    for (const PullRequestRow& row : _sources.rows()) {
        const auto known = _facts->find(row.id());
        if (known != _facts->end() && known->second.updatedAt != row.pullRequest.updatedAt) {
            outdated.push_back(row.id());
        }
    }
    if (outdated.empty()) {
        return;
    }
    FactsByID kept = *_facts;
    for (const PullRequestID& id : outdated) {
        kept.erase(id);
    }
    setFacts(std::move(kept));
    Q_EMIT factsChanged();
}

void FactsQuestions::take(FactsAnswer answer)
{
    // Answers may belong to an older list or, after a rename, to another name.
    const auto known = identities(*_listed);
    std::erase_if(answer.facts, [&](const auto& entry) { return !known.contains(entry.first); });
    if (!answer.facts.empty()) {
        // New facts take precedence.
        answer.facts.insert(_facts->begin(), _facts->end());
        setFacts(std::move(answer.facts));
        Q_EMIT factsChanged();
    }
    if (answer.quota) {
        _isUnsaved = true;
        Q_EMIT quotaTold(*answer.quota);
    }
}

}  // namespace Tarnwick
