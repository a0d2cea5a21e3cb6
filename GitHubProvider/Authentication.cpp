#include "GitHubProvider/Authentication.h"

#include "GitHubProvider/FailedLogin.h"
#include "GitHubProvider/Text.h"

#include <exception>

namespace GitHub {
namespace {

using PullRequestKit::Authenticated;
using PullRequestKit::AuthenticationStatus;
using PullRequestKit::NotAuthenticated;
using PullRequestKit::Unavailable;

constexpr const char* notLoggedIn = "GitHub CLI is not logged in.";

std::string bothStreams(const CommandResult& result)
{
    return decodeText(result.standardOutput + result.standardError);
}

bool isUnknownActiveFlag(const CommandResult& result)
{
    return result.status == 1
           && result.standardError.find("unknown flag: --active") != std::string::npos;
}

/// `gh` 2.40 to 2.53 exits with 0 on a bad login. It lists the active account first; the others do
/// not matter.
bool isFailedLogin(std::string_view text)
{
    return text.find("Failed to log in") < text.find("Logged in to ");
}

/// Before 2.40 the line is "Logged in to HOST as NAME (…)".
std::optional<std::string> olderAccountName(std::string_view text)
{
    if (auto name = accountName(text)) {
        return name;
    }
    constexpr std::string_view before = " as ";
    const std::size_t line = text.find("Logged in to ");
    const std::size_t word = text.find(before, line);
    return word == std::string_view::npos ? std::nullopt
                                          : firstWord(text.substr(word + before.size()));
}

AuthenticationStatus statusOf(const CommandResult& result)
{
    if (result.status != 0) {
        return NotAuthenticated{failureText(result, notLoggedIn)};
    }
    return Authenticated{accountName(bothStreams(result))};
}

AuthenticationStatus statusOfOlder(const CommandResult& result)
{
    const std::string text = bothStreams(result);
    if (result.status == 0 && !isFailedLogin(text)) {
        return Authenticated{olderAccountName(text)};
    }
    const std::string message = trimText(text);
    return NotAuthenticated{message.empty() ? notLoggedIn : message};
}

AuthenticationStatus askAuthStatus(
    const Gh& gh, const std::string& host, const std::stop_token& stopToken)
{
    const CommandResult result =
        gh.run({"auth", "status", "--hostname", host, "--active"}, stopToken);
    if (!isUnknownActiveFlag(result)) {
        return statusOf(result);
    }
    return statusOfOlder(gh.run({"auth", "status", "--hostname", host}, stopToken));
}

/// Replaces a failed login by its real cause, if one can be found. Without any output nobody is
/// signed in.
AuthenticationStatus explained(
    AuthenticationStatus status,
    const Gh& gh,
    const std::string& host,
    const WallClock& clock,
    const std::stop_token& stopToken)
{
    const auto* const failed = std::get_if<NotAuthenticated>(&status);
    if (failed == nullptr || failed->message == notLoggedIn || saysNotLoggedIn(failed->message)) {
        return status;
    }
    if (auto reason = findObstacle(gh, host, clock, stopToken)) {
        return Unavailable{*std::move(reason), true};
    }
    return status;
}

}  // namespace

std::optional<std::string> accountName(std::string_view text)
{
    const std::size_t end = endOfAsciiIgnoringCase(text, "account ");
    return end == std::string_view::npos ? std::nullopt : firstWord(text.substr(end));
}

AuthenticationStatus authenticationStatus(
    const Gh& gh, const std::string& host, const WallClock& clock, std::stop_token stopToken)
{
    if (!gh.isFound()) {
        return Unavailable{"GitHub CLI (gh) was not found. Install it, then run gh auth login."};
    }
    try {
        return explained(askAuthStatus(gh, host, stopToken), gh, host, clock, stopToken);
    } catch (const std::exception& error) {
        return Unavailable{
            std::string("Could not run gh auth status: ") + error.what(), isTimeOut(error)};
    }
}

}  // namespace GitHub
