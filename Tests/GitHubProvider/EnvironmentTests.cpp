#include "GitHubProvider/Process/Environment.h"

#include "GitHubProvider/Gh.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace GitHub;
using std::filesystem::path;

TEST(EnvironmentValue, isEmptyWhereTheVariableIsNotSet)
{
    EXPECT_EQ(valueIn({{"HOME", "/home/octo"}}, "HOME"), "/home/octo");
    EXPECT_EQ(valueIn({{"HOME", "/home/octo"}}, "PATH"), "");
}

/// Where `gh` is looked for, in order.
std::vector<std::string> places(const Environment& environment)
{
    std::vector<std::string> asked;
    EXPECT_EQ(
        findGH(
            environment,
            [&](const path& candidate) {
                asked.push_back(candidate.string());
                return false;
            }),
        std::nullopt);
    return asked;
}

TEST(FindGH, looksInThreeFixedPlacesAndThenInTheFoldersOfPathAsTheyStand)
{
    const std::vector<std::string> fixed{
        "/opt/homebrew/bin/gh", "/usr/local/bin/gh", "/usr/bin/gh"};
    const auto withFixed = [&](std::initializer_list<std::string> more) {
        std::vector<std::string> all = fixed;
        all.insert(all.end(), more);
        return all;
    };
    EXPECT_EQ(places({{"HOME", "/home/octo"}}), fixed);
    EXPECT_EQ(places({{"PATH", "::/x/bin:"}}), withFixed({"/x/bin/gh"}));
    EXPECT_EQ(
        places({{"PATH", "~/bin:/usr/bin:tools/:/usr/bin"}}),
        withFixed({"~/bin/gh", "/usr/bin/gh", "tools//gh", "/usr/bin/gh"}));
}

TEST(FindGH, takesTheFirstExecutable)
{
    const auto isOneOf = [](std::vector<path> executables) {
        return [executables = std::move(executables)](const path& candidate) {
            return std::ranges::find(executables, candidate) != executables.end();
        };
    };
    EXPECT_EQ(findGH({{"PATH", "/a:/b"}}, isOneOf({"/b/gh", "/a/gh"})), "/a/gh");
    EXPECT_EQ(
        findGH({{"PATH", "/a"}}, isOneOf({"/a/gh", "/usr/local/bin/gh"})), "/usr/local/bin/gh");
    EXPECT_EQ(findGH({}, isOneOf({"/usr/bin/gh"})), "/usr/bin/gh");
}

class ExecutableFile : public testing::Test {
protected:
    void SetUp() override
    {
        std::string name = (std::filesystem::temp_directory_path() / "gh-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    path makeFile(const char* name, std::filesystem::perms permissions) const
    {
        const path file = folder / name;
        std::ofstream(file) << "#!/bin/sh\n";
        std::filesystem::permissions(file, permissions);
        return file;
    }

    path folder;
};

TEST_F(ExecutableFile, isARegularFileThatMayBeExecuted)
{
    using std::filesystem::perms;
    EXPECT_TRUE(isExecutableFile(makeFile("gh", perms::owner_read | perms::owner_exec)));
    EXPECT_FALSE(isExecutableFile(makeFile("plain", perms::owner_read)));
    EXPECT_FALSE(isExecutableFile(folder));
    EXPECT_FALSE(isExecutableFile(folder / "missing"));
    EXPECT_FALSE(isExecutableFile(folder / "gh" / "below a file"));
}

TEST_F(ExecutableFile, isFoundThroughALink)
{
    using std::filesystem::perms;
    const path target = makeFile("target", perms::owner_read | perms::owner_exec);
    std::filesystem::create_symlink(target, folder / "gh");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_TRUE(isExecutableFile(folder / "gh"));
    EXPECT_FALSE(isExecutableFile(folder / "dangling"));
}

}  // namespace
