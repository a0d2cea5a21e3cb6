#include "GitHubProvider/SystemLog.h"

#include <cstdarg>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <syslog.h>

namespace {

struct Entry {
    std::string identifier;
    int priority;
    std::string text;

    bool operator==(const Entry&) const = default;
};

std::string currentIdentifier;
std::vector<Entry> entries;

}  // namespace

// These stand in for the C library's functions of the same names in this program, whose parameters
// have names that are reserved for it.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" void openlog(const char* identifier, int /*option*/, int /*facility*/)
{
    currentIdentifier = identifier;
}

extern "C" void syslog(int priority, const char* format, ...)
{
    ASSERT_STREQ(format, "%s");
    va_list arguments;
    va_start(arguments, format);
    entries.push_back({currentIdentifier, priority, va_arg(arguments, const char*)});
    va_end(arguments);
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace {

TEST(SystemLog, writesEachLineAsTarnwick)
{
    entries.clear();
    const GitHub::LogSink log = GitHub::systemLog();
    log("Tarnwick GitHub search: page=1");
    log("100% %s");
    EXPECT_THAT(
        entries,
        testing::ElementsAre(
            Entry{"tarnwick", LOG_INFO, "Tarnwick GitHub search: page=1"},
            Entry{"tarnwick", LOG_INFO, "100% %s"}));
}

}  // namespace
