#pragma once

#include "GitHubProvider/Clocks.h"
#include "GitHubProvider/Gh.h"
#include "GitHubProvider/Process/CommandRunning.h"
#include "PullRequestKit/Json/Fields.h"

#include <chrono>
#include <cstdint>
#include <exception>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace GitHub {

/// `gh auth status` reports every refused or failed request as an invalid token. These functions
/// find out whether GitHub was unreachable or the rate limit exhausted instead.

/// One of GitHub's rate limits.
struct RequestLimit {
    std::int64_t remaining = 0;
    std::int64_t reset = 0;  ///< Seconds since 1970.

    bool operator==(const RequestLimit&) const = default;
};

/// The relevant part of `gh api rate_limit`.
struct RequestLimits {
    struct Resources {
        std::optional<RequestLimit> core;
        std::optional<RequestLimit> graphql;

        bool operator==(const Resources&) const = default;
    };

    std::optional<Resources> resources;

    bool operator==(const RequestLimits&) const = default;
};

/// Whether a run of `gh` timed out. Safe from any thread.
bool isTimeOut(const std::exception& error);

/// Whether the text of a failed login says that nobody is signed in. Safe from any thread.
bool saysNotLoggedIn(std::string_view text);

/// Judges the answer of `gh api rate_limit` after a failed login: the reason other than the login,
/// as a text for the user, or nothing. Safe from any thread.
std::optional<std::string> obstacle(
    const CommandResult& answer, std::chrono::system_clock::time_point now);

/// Runs `gh api rate_limit` once and judges the answer; a timeout counts too. Blocks; call on a
/// worker thread. Throws only `CancellationError`.
std::optional<std::string> findObstacle(
    const Gh& gh, const std::string& host, const WallClock& clock, std::stop_token stopToken);

}  // namespace GitHub

namespace PullRequestKit::Json {

template<>
struct Fields<GitHub::RequestLimit> {
    static constexpr std::tuple table{
        field("remaining", &GitHub::RequestLimit::remaining),
        field("reset", &GitHub::RequestLimit::reset),
    };
};

template<>
struct Fields<GitHub::RequestLimits::Resources> {
    static constexpr std::tuple table{
        field("core", &GitHub::RequestLimits::Resources::core),
        field("graphql", &GitHub::RequestLimits::Resources::graphql),
    };
};

template<>
struct Fields<GitHub::RequestLimits> {
    static constexpr std::tuple table{
        field("resources", &GitHub::RequestLimits::resources),
    };
};

}  // namespace PullRequestKit::Json
