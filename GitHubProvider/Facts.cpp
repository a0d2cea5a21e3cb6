#include "GitHubProvider/Facts.h"

#include "GitHubProvider/RequestFailure.h"
#include "PullRequestKit/Errors.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

namespace GitHub {

using PullRequestKit::CancellationError;
using PullRequestKit::FactsAnswer;
using PullRequestKit::PullRequest;

namespace {

/// After this many failed batches in a row, GitHub counts as unreachable.
constexpr int failuresToRestAfter = 2;

void add(FactsAnswer& answer, FactsPage page)
{
    answer.facts.merge(std::move(page.facts));
    answer.hitSecondaryLimit = answer.hitSecondaryLimit || page.isSecondaryLimit;
    if (page.quota) {
        answer.quota = page.quota;
    }
}

}  // namespace

Facts::Facts(const Gh& gh, std::string host, const WallClock& clock)
    : _gh(gh)
    , _host(std::move(host))
    , _clock(clock)
{}

FactsAnswer Facts::ask(
    std::span<const PullRequest> pullRequests, const std::stop_token& stopToken) const
{
    FactsAnswer answer;
    std::vector<const PullRequest*> rows;
    for (const PullRequest& pullRequest : pullRequests) {
        if (pullRequest.id.host == _host && canBeAsked(pullRequest.id)) {
            rows.push_back(&pullRequest);
        }
    }
    if (!rows.empty() && !_gh.isFound()) {
        return answer;
    }
    int failures = 0;
    for (std::size_t first = 0; first < rows.size(); first += batchSize) {
        const Batch rest = Batch(rows).subspan(first);
        switch (askBatch(answer, rest.first(std::min(batchSize, rest.size())), stopToken)) {
        case Outcome::answered:
            failures = 0;
            break;
        case Outcome::failed:
            ++failures;
            break;
        case Outcome::limited:
            return answer;
        }
        if (failures == failuresToRestAfter) {
            break;
        }
    }
    return answer;
}

Facts::Outcome Facts::askBatch(
    FactsAnswer& answer, Batch batch, const std::stop_token& stopToken) const
{
    FactsPage whole = request(batch, stopToken);
    const bool isFinal = whole.hasData || whole.isLimited;
    Outcome outcome = outcomeOf(whole);
    add(answer, std::move(whole));
    for (std::size_t first = 0; !isFinal && first < batch.size(); first += smallBatchSize) {
        const Batch rest = batch.subspan(first);
        FactsPage part = request(rest.first(std::min(smallBatchSize, rest.size())), stopToken);
        const Outcome ofPart = outcomeOf(part);
        add(answer, std::move(part));
        if (ofPart == Outcome::limited) {
            return ofPart;
        }
        outcome = ofPart == Outcome::answered ? ofPart : outcome;
    }
    return outcome;
}

Facts::Outcome Facts::outcomeOf(const FactsPage& page)
{
    if (page.isLimited) {
        return Outcome::limited;
    }
    return page.hasData ? Outcome::answered : Outcome::failed;
}

/// Retries at once without the fields that the host does not know.
FactsPage Facts::request(Batch batch, const std::stop_token& stopToken) const
{
    UnknownFields unknown = unknownFields();
    while (haveFacts(unknown)) {
        FactsPage page = run(batch, unknown, stopToken);
        const UnknownFields more = page.unknownFields & ~unknown;
        if (page.hasData || more.none()) {
            return page;
        }
        unknown |= more;
        remember(more);
    }
    return {};
}

FactsPage Facts::run(
    Batch batch, const UnknownFields& unknown, const std::stop_token& stopToken) const
{
    if (stopToken.stop_requested()) {
        throw CancellationError();
    }
    try {
        const auto askedAt = std::chrono::floor<std::chrono::seconds>(_clock());
        // After a GraphQL error `gh` exits with a status, but its output may have data.
        const CommandResult result = _gh.run(factsArguments(batch, unknown), stopToken);
        FactsPage page = readFacts(result.standardOutput, batch, askedAt);
        if (!page.hasData) {
            page.isSecondaryLimit =
                page.isSecondaryLimit || tellsOfSecondaryLimit(result.standardError);
            page.isLimited = page.isLimited || tellsOfLimit(result.standardError);
        }
        return page;
    } catch (const CancellationError&) {
        throw;
    } catch (const std::exception&) {
        return {};
    }
}

UnknownFields Facts::unknownFields() const
{
    const std::lock_guard lock(_mutex);
    return _unknownFields;
}

void Facts::remember(const UnknownFields& more) const
{
    const std::lock_guard lock(_mutex);
    _unknownFields |= more;
}

}  // namespace GitHub
