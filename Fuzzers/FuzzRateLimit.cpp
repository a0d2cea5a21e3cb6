#include "Fuzzers/RoundTrip.h"
#include "GitHubProvider/FailedLogin.h"

#include <algorithm>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // A byte for the exit status, standard output, a zero byte, standard error.
    std::string_view input = Fuzzers::textOf(data, size);
    GitHub::CommandResult answer;
    answer.status = input.empty() ? 0 : input.front() % 2;
    input.remove_prefix(std::min<std::size_t>(1, input.size()));
    const std::size_t end = std::min(input.find('\0'), input.size());
    answer.standardOutput = input.substr(0, end);
    answer.standardError = input.substr(std::min(end + 1, input.size()));

    Fuzzers::roundTrip<GitHub::RequestLimits>(answer.standardOutput);
    const std::chrono::system_clock::time_point now{std::chrono::seconds(1'772'366'400)};
    const auto problem = GitHub::obstacle(answer, now);
    // Untrusted output selects the sentence but is not part of it.
    constexpr std::string_view usedUp = "GitHub's limit for your account is used up";
    Fuzzers::require(
        !problem || *problem == "GitHub cannot be reached."
        || (problem->starts_with(usedUp) && problem->size() <= usedUp.size() + 13));
    const bool isRefusedLogin =
        answer.standardError.find("(HTTP 401)") != std::string::npos && answer.status != 0;
    Fuzzers::require(!isRefusedLogin || !problem);
    return 0;
}
