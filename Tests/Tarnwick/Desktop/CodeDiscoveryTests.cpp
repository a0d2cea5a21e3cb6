#include "Tarnwick/Desktop/CodeDiscovery.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace {

using Tarnwick::codeExecutable;
using testing::ElementsAre;

TEST(CodeDiscovery, triesFourFixedPlacesBeforeTheSearchPath)
{
    std::vector<std::string> asked;
    const auto none = [&](const std::filesystem::path& path) {
        asked.push_back(path.string());
        return false;
    };
    EXPECT_EQ(
        codeExecutable({{"HOME", "/home/octo"}, {"PATH", "/usr/bin:/snap/bin/"}}, none),
        std::nullopt);
    EXPECT_THAT(
        asked,
        ElementsAre(
            "/usr/local/bin/code",
            "/opt/homebrew/bin/code",
            "/Applications/Visual Studio Code.app/Contents/Resources/app/bin/code",
            "/home/octo/Applications/Visual Studio Code.app/Contents/Resources/app/bin/code",
            "/usr/bin/code",
            "/snap/bin//code"));
}

TEST(CodeDiscovery, prefersTheFixedPlaceWhenBothAreThere)
{
    const auto code = codeExecutable({{"PATH", "/usr/bin"}}, [](const auto& path) {
        return path == "/usr/bin/code" || path == "/usr/local/bin/code";
    });
    EXPECT_EQ(code, "/usr/local/bin/code");
}

}  // namespace
