#include "Fuzzers/RoundTrip.h"
#include "GitHubProvider/Authentication.h"
#include "GitHubProvider/Text.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>

namespace {

using GitHub::CommandResult;
using GitHub::CommandRunning;

/// A `gh` that prints the input as its login status, and no rate limits. An odd first byte
/// simulates an older version that does not know `--active`.
class FuzzedGh final : public CommandRunning {
public:
    explicit FuzzedGh(std::string_view input)
        : _isOlder(!input.empty() && input.front() % 2 != 0)
    {
        if (input.empty()) {
            return;
        }
        _login.status = input.front() / 2 % 2;
        input.remove_prefix(1);
        const std::size_t end = std::min(input.find('\0'), input.size());
        _login.standardOutput = input.substr(0, end);
        _login.standardError = input.substr(std::min(end + 1, input.size()));
    }

    CommandResult run(
        const std::filesystem::path& /*executable*/,
        const std::vector<std::string>& arguments,
        std::stop_token /*stopToken*/) const override
    {
        if (arguments.front() != "auth") {
            return {1, {}, {}};
        }
        const bool isRefused = _isOlder && arguments.back() == "--active";
        return isRefused ? CommandResult{1, {}, "unknown flag: --active"} : _login;
    }

private:
    bool _isOlder;
    CommandResult _login;
};

bool isText(const std::string& text)
{
    return GitHub::decodeText(text) == text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace PullRequestKit;
    const GitHub::Gh gh(
        [] { return std::filesystem::path("/opt/gh"); },
        std::make_shared<FuzzedGh>(Fuzzers::textOf(data, size)));
    const AuthenticationStatus status =
        GitHub::authenticationStatus(gh, "github.com", std::chrono::system_clock::now, {});
    if (const auto* const signedIn = std::get_if<Authenticated>(&status)) {
        Fuzzers::require(
            !signedIn->account
            || (isText(*signedIn->account)
                && GitHub::firstWord(*signedIn->account) == signedIn->account));
    } else {
        const auto* const signedOut = std::get_if<NotAuthenticated>(&status);
        Fuzzers::require(
            signedOut != nullptr && !signedOut->message.empty() && isText(signedOut->message));
    }
    return 0;
}
