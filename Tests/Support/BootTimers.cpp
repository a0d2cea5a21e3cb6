#include "Support/BootTimers.h"

#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace TestSupport {

std::vector<int> secondsOfBootTimers(pid_t process)
{
    const std::string clock = "clockid: " + std::to_string(CLOCK_BOOTTIME) + "\n";
    const std::string value = "it_value: (";
    std::vector<int> seconds;
    for (const auto& entry :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/fdinfo")) {
        std::ifstream file(entry.path());
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        if (text.find(clock) != std::string::npos) {
            seconds.push_back(std::stoi(text.substr(text.find(value) + value.size())));
        }
    }
    return seconds;
}

}  // namespace TestSupport
