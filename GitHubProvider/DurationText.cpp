#include "GitHubProvider/DurationText.h"

#include <array>
#include <charconv>

namespace GitHub {

std::string durationText(std::chrono::nanoseconds duration)
{
    const double seconds = std::chrono::duration<double>(duration).count();
    std::array<char, 64> buffer{};
    const auto written =
        std::to_chars(buffer.begin(), buffer.end(), seconds, std::chars_format::fixed);
    return std::string(buffer.begin(), written.ptr) + " seconds";
}

}  // namespace GitHub
