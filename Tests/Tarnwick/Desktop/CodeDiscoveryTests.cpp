#include "Tarnwick/Desktop/CodeDiscovery.h"

#include <gmock/gmock.h>

namespace {

using namespace Tarnwick;
using testing::ElementsAre;

std::vector<std::string> texts(const std::vector<std::filesystem::path>& paths)
{
    std::vector<std::string> list;
    for (const auto& path : paths) {
        list.push_back(path.string());
    }
    return list;
}

std::optional<std::filesystem::path> found(
    const GitHub::Environment& environment, const std::string& only)
{
    return codeExecutable(
        environment, [&](const std::filesystem::path& path) { return path.string() == only; });
}

TEST(CodeDiscovery, triesFourFixedPlacesBeforeTheSearchPath)
{
    EXPECT_THAT(
        texts(codeCandidates({{"HOME", "/home/octo"}, {"PATH", "/usr/bin:/snap/bin"}})),
        ElementsAre(
            "/usr/local/bin/code",
            "/opt/homebrew/bin/code",
            "/Applications/Visual Studio Code.app/Contents/Resources/app/bin/code",
            "/home/octo/Applications/Visual Studio Code.app/Contents/Resources/app/bin/code",
            "/usr/bin/code",
            "/snap/bin/code"));
}

TEST(CodeDiscovery, keepsTheDoubledSlashOfASearchPathEntryThatEndsInOne)
{
    const auto candidates = texts(codeCandidates({{"HOME", "/root"}, {"PATH", "/usr/local/bin/"}}));
    EXPECT_EQ(candidates.back(), "/usr/local/bin//code");
    EXPECT_EQ(candidates.size(), 5U);
}

TEST(CodeDiscovery, skipsEmptyEntriesOfTheSearchPath)
{
    const auto candidates = texts(codeCandidates({{"HOME", "/root"}, {"PATH", ":/a::/b:"}}));
    EXPECT_THAT(
        (std::vector(candidates.begin() + 4, candidates.end())), ElementsAre("/a/code", "/b/code"));
}

TEST(CodeDiscovery, hasOnlyTheFixedPlacesWithoutASearchPath)
{
    EXPECT_EQ(codeCandidates({{"HOME", "/root"}}).size(), 4U);
}

TEST(CodeDiscovery, findsTheOneBelowTheUsersOwnApplications)
{
    const std::string path =
        "/home/octo/Applications/Visual Studio Code.app/Contents/Resources/app/bin/code";
    EXPECT_EQ(found({{"HOME", "/home/octo"}, {"PATH", "/usr/bin"}}, path), path);
}

TEST(CodeDiscovery, prefersTheFixedPlaceWhenBothAreThere)
{
    const auto code = codeExecutable({{"PATH", "/usr/bin"}}, [](const auto& path) {
        return path == "/usr/bin/code" || path == "/usr/local/bin/code";
    });
    EXPECT_EQ(code, "/usr/local/bin/code");
}

TEST(CodeDiscovery, findsNothingWhereThereIsNone)
{
    EXPECT_EQ(found({{"PATH", "/usr/bin"}}, "/elsewhere/code"), std::nullopt);
}

}  // namespace
