#include "Helper.h"

using namespace GitHub;
using namespace std::chrono_literals;

std::filesystem::path helperPath()
{
    return PROCESS_HELPER;
}

std::string helperPattern(std::size_t count)
{
    std::string bytes(count, '\0');
    for (std::size_t index = 0; index < count; ++index) {
        bytes[index] = static_cast<char>(index % 251);
    }
    return bytes;
}

CommandResult runHelper(const std::vector<std::string>& arguments, std::stop_token stopToken)
{
    return ProcessCommandRunner(50s).run(helperPath(), arguments, stopToken);
}

BackgroundRun::BackgroundRun(
    const std::vector<std::string>& arguments, std::chrono::nanoseconds timeout)
    : _result(
          std::async(std::launch::async, [arguments, timeout, stopToken = _stopSource.get_token()] {
              return ProcessCommandRunner(timeout).run(helperPath(), arguments, stopToken);
          }))
{}

bool BackgroundRun::hasEnded() const
{
    return _result.wait_for(0s) == std::future_status::ready;
}
