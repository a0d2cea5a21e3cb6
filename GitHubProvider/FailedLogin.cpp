#include "GitHubProvider/FailedLogin.h"

#include "GitHubProvider/Text.h"
#include "PullRequestKit/Errors.h"
#include "PullRequestKit/Json/Reading.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace GitHub {
namespace {

using std::chrono::system_clock;

constexpr const char* unreachable = "GitHub cannot be reached.";

bool containsAny(std::string_view text, const auto& parts)
{
    return std::ranges::any_of(parts, [&](std::string_view part) {
        return endOfAsciiIgnoringCase(text, part) != std::string_view::npos;
    });
}

/// `gh` prints the HTTP status at the end of the line: "gh: Bad credentials (HTTP 401)".
bool hasStatus(std::string_view text, std::string_view status)
{
    return text.find("(HTTP " + std::string(status) + ")") != std::string_view::npos;
}

/// No HTTP response. `gh` has its own message for an unknown host; all others come from its network
/// library: `Get "https://…": ` and the reason.
bool isUnanswered(std::string_view text)
{
    constexpr std::array<std::string_view, 3> beginnings{
        "error connecting to ", "get \"http", "unexpected eof"};
    return containsAny(text, beginnings);
}

/// GitHub's gateways answer with these statuses when the service is down.
bool isAnsweredByGateway(std::string_view text)
{
    return hasStatus(text, "502") || hasStatus(text, "503") || hasStatus(text, "504");
}

bool isRefusedByLimit(std::string_view text)
{
    constexpr std::array<std::string_view, 1> otherReasons{"suspended"};
    return hasStatus(text, "429") || (hasStatus(text, "403") && !containsAny(text, otherReasons));
}

std::optional<RequestLimits> readLimits(const std::string& text)
{
    try {
        return PullRequestKit::Json::decode<RequestLimits>(text);
    } catch (const PullRequestKit::DecodingError&) {
        return std::nullopt;
    }
}

/// When the last exhausted limit is reset; nothing when none is exhausted.
std::optional<std::int64_t> endOfUsedUpLimit(const RequestLimits& limits)
{
    std::optional<std::int64_t> end;
    const auto consider = [&](const std::optional<RequestLimit>& limit) {
        if (limit && limit->remaining <= 0) {
            end = std::max(end.value_or(limit->reset), limit->reset);
        }
    };
    if (limits.resources) {
        consider(limits.resources->core);
        consider(limits.resources->graphql);
    }
    return end;
}

/// " until 14:20" in local time; empty for an implausible instant.
std::string untilText(std::optional<std::int64_t> end, system_clock::time_point now)
{
    const std::time_t current = system_clock::to_time_t(now);
    constexpr std::time_t day = 24L * 60 * 60;
    if (!end || *end <= current || *end > current + day) {
        return {};
    }
    const std::time_t instant = *end;
    std::tm local{};
    std::array<char, 8> text{};
    if (localtime_r(&instant, &local) == nullptr
        || std::strftime(text.data(), text.size(), "%H:%M", &local) == 0) {
        return {};
    }
    return std::string(" until ") + text.data();
}

std::string usedUp(std::optional<std::int64_t> end, system_clock::time_point now)
{
    return "GitHub's limit for your account is used up" + untilText(end, now) + ".";
}

}  // namespace

bool isTimeOut(const std::exception& error)
{
    return std::string_view(error.what()) == "GitHub CLI request timed out.";
}

bool saysNotLoggedIn(std::string_view text)
{
    constexpr std::array<std::string_view, 2> parts{
        "not logged in", "not found among authenticated"};
    return containsAny(text, parts);
}

std::optional<std::string> obstacle(const CommandResult& answer, system_clock::time_point now)
{
    const std::string text = trimText(decodeText(answer.standardError));
    const auto limits = readLimits(answer.standardOutput);
    const auto end = limits ? endOfUsedUpLimit(*limits) : std::nullopt;
    if (answer.status == 0) {
        return end ? std::optional(usedUp(end, now)) : std::nullopt;
    }
    if (hasStatus(text, "401")) {
        return std::nullopt;
    }
    if (isRefusedByLimit(text)) {
        return usedUp(end, now);
    }
    const bool isOutOfReach = isUnanswered(text) || isAnsweredByGateway(text);
    return isOutOfReach ? std::optional<std::string>(unreachable) : std::nullopt;
}

std::optional<std::string> findObstacle(
    const Gh& gh, const std::string& host, const WallClock& clock, std::stop_token stopToken)
{
    try {
        return obstacle(gh.run({"api", "--hostname", host, "rate_limit"}, stopToken), clock());
    } catch (const PullRequestKit::CancellationError&) {
        throw;
    } catch (const PullRequestKit::ProviderError& error) {
        return isTimeOut(error) ? std::optional<std::string>(unreachable) : std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace GitHub
