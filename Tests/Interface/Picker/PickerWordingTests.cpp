#include "Tarnwick/Interface/Picker/PickerWording.h"

#include <gtest/gtest.h>

namespace Tarnwick::PickerWording {
namespace {

using PullRequestKit::RepositorySummary;

RepositorySummary repository(
    std::optional<std::string> visibility, std::optional<std::string> language = {})
{
    RepositorySummary made;
    made.fullName = "fenland/harbour";
    made.visibility = std::move(visibility);
    made.language = std::move(language);
    return made;
}

TEST(PickerWordingTests, aRepositoryWithoutVisibilityReadsUnknownVisibility)
{
    EXPECT_EQ(details(repository({})), QStringLiteral("Unknown visibility"));
    EXPECT_EQ(details(repository({}, "Go")), QStringLiteral("Unknown visibility · Go"));
    EXPECT_EQ(details(repository("")), QStringLiteral("Unknown visibility"));
}

TEST(PickerWordingTests, theVisibilityIsCapitalised)
{
    EXPECT_EQ(details(repository("private", "C++")), QStringLiteral("Private · C++"));
    EXPECT_EQ(details(repository("INTERNAL")), QStringLiteral("Internal"));
    EXPECT_EQ(details(repository("public", "")), QStringLiteral("Public"));
}

TEST(PickerWordingTests, archivedRepositoriesSaySo)
{
    RepositorySummary archived = repository("public", "Rust");
    archived.isArchived = true;
    EXPECT_EQ(details(archived), QStringLiteral("Public · Rust · Archived"));
}

TEST(PickerWordingTests, privateIsPrivateInAnyLetterCase)
{
    EXPECT_TRUE(isPrivate(repository("private")));
    EXPECT_TRUE(isPrivate(repository("PRIVATE")));
    EXPECT_FALSE(isPrivate(repository("internal")));
    EXPECT_FALSE(isPrivate(repository({})));
}

TEST(PickerWordingTests, theSentenceNamesTheWholeRow)
{
    EXPECT_EQ(
        sentence(repository("private", "C++")), QStringLiteral("fenland/harbour, Private, C++"));
}

TEST(PickerWordingTests, theSummaryCounts)
{
    EXPECT_EQ(selectedCount(0), QStringLiteral("0 selected"));
    EXPECT_EQ(selectedCount(1), QStringLiteral("1 selected"));
    EXPECT_EQ(selectedCount(3000), QStringLiteral("3000 selected"));
}

TEST(PickerWordingTests, theNoteHasTheDirectoryInItsPlace)
{
    EXPECT_EQ(
        directoryNote(QStringLiteral("/home/mira/projects")).text(),
        QStringLiteral("Repositories open from /home/mira/projects/<repository>."));
    EXPECT_EQ(
        directoryNote(QStringLiteral("~/projects/")).text(),
        QStringLiteral("Repositories open from ~/projects/<repository>."));
    EXPECT_EQ(
        directoryNote(QStringLiteral("/")).text(),
        QStringLiteral("Repositories open from /<repository>."));
    EXPECT_EQ(
        directoryNote(QString()).text(),
        QStringLiteral("Repositories open from <project directory>/<repository>."));
}

}  // namespace
}  // namespace Tarnwick::PickerWording
