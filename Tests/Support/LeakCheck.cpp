#include "Support/LeakCheck.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <sys/wait.h>

namespace TestSupport {

std::map<int, std::string> openDescriptors()
{
    const std::string folder = "/proc/" + std::to_string(::getpid()) + "/fd";
    std::map<int, std::string> descriptors;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::error_code error;
        const std::string name = std::filesystem::read_symlink(entry, error).string();
        if (!error && name != folder) {  // The folder is open only for this loop.
            descriptors.emplace(std::stoi(entry.path().filename()), name);
        }
    }
    return descriptors;
}

bool hasChildren()
{
    siginfo_t ended{};
    return ::waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
}

void LeakCheck::SetUp()
{
    ASSERT_FALSE(hasChildren()) << "a child process was there before the tests";
    _before = openDescriptors();
}

void LeakCheck::TearDown()
{
    EXPECT_FALSE(hasChildren()) << "a child process is left";
    EXPECT_THAT(openDescriptors(), testing::ContainerEq(_before)) << "descriptors have leaked";
}

}  // namespace TestSupport
