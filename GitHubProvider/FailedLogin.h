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

/// `gh auth status` calls every refused or failed request an invalid token. These functions find
/// out whether GitHub was out of reach or the account's limit used up instead.

/// One of GitHub's limits on an account's requests.
struct RequestLimit {
    std::int64_t remaining = 0;
    std::int64_t reset = 0;  ///< Seconds since 1970.

    bool operator==(const RequestLimit&) const = default;
};

/// What `gh api rate_limit` prints, as far as it concerns this program's requests.
struct RequestLimits {
    struct Resources {
        std::optional<RequestLimit> core;
        std::optional<RequestLimit> graphql;

        bool operator==(const Resources&) const = default;
    };

    std::optional<Resources> resources;

    bool operator==(const RequestLimits&) const = default;
};

/// Whether a run of `gh` failed because its time limit expired. Safe from any thread.
bool isTimeOut(const std::exception& error);

/// Whether the text of a failed login says that nobody is signed in. Safe from any thread.
bool saysNotLoggedIn(std::string_view text);

/// Why a login failed that the answer to `gh api rate_limit` shows to be in order, as a text for
/// the user; nothing when the login may be at fault. Safe from any thread.
std::optional<std::string> obstacle(
    const CommandResult& answer, std::chrono::system_clock::time_point now);

/// Asks `gh api rate_limit` once and judges the answer, a time-out included. Blocks; call on a
/// worker thread. Throws `CancellationError` alone.
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
