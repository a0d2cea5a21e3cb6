#pragma once

#include "GitHubProvider/Clocks.h"
#include "GitHubProvider/FactsDocument.h"
#include "GitHubProvider/FactsReading.h"
#include "GitHubProvider/Gh.h"
#include "PullRequestKit/PullRequestFacts.h"

#include <cstddef>
#include <mutex>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace GitHub {

/// Requests facts, fifty at a time, and remembers which fields the host lacks. Safe from any
/// thread.
class Facts {
public:
    static constexpr std::size_t batchSize = 50;

    /// A failed request is retried once in parts of this size.
    static constexpr std::size_t smallBatchSize = 25;

    /// `gh` and the clock must outlive it.
    Facts(const Gh& gh, std::string host, const WallClock& clock);

    /// Facts of this host's pull requests. What fails twice is left out; two failed batches in a
    /// row or a rate limit end it. Blocks; call on a worker thread. Throws only
    /// `CancellationError`.
    PullRequestKit::FactsAnswer ask(
        std::span<const PullRequestKit::PullRequest> pullRequests,
        const std::stop_token& stopToken) const;

private:
    using Batch = std::span<const PullRequestKit::PullRequest* const>;

    enum class Outcome {
        answered,
        failed,
        limited,
    };

    Outcome askBatch(
        PullRequestKit::FactsAnswer& answer, Batch batch, const std::stop_token& stopToken) const;
    static Outcome outcomeOf(const FactsPage& page);
    FactsPage request(Batch batch, const std::stop_token& stopToken) const;
    FactsPage run(
        Batch batch, const UnknownFields& unknown, const std::stop_token& stopToken) const;
    UnknownFields unknownFields() const;
    void remember(const UnknownFields& more) const;

    const Gh& _gh;
    std::string _host;
    const WallClock& _clock;
    mutable std::mutex _mutex;
    mutable UnknownFields _unknownFields;  // Guarded by _mutex.
};

}  // namespace GitHub
