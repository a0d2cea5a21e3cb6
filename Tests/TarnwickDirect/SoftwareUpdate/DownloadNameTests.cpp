#include "TarnwickDirect/SoftwareUpdate/DownloadName.h"

#include "SoftwareUpdate/UpdateErrors.h"

#include <gtest/gtest.h>

namespace {

using TestSupport::updateErrorOf;

std::string nameAt(const char* url)
{
    return TarnwickDirect::downloadName(QUrl::fromEncoded(url)).toStdString();
}

std::string errorAt(const char* url)
{
    return updateErrorOf([&] { nameAt(url); });
}

TEST(DownloadName, isTheLastPartOfTheAddress)
{
    EXPECT_EQ(nameAt("https://example.com/Tarnwick.AppImage"), "Tarnwick.AppImage");
    EXPECT_EQ(
        nameAt("https://example.com/v1/tarnwick_1.4_amd64.deb?a=/b/c#/d"),
        "tarnwick_1.4_amd64.deb");
    EXPECT_EQ(nameAt("https://example.com/Tarnwick%201.4.AppImage"), "Tarnwick 1.4.AppImage");
    EXPECT_EQ(nameAt("https://example.com/Caf%C3%A9"), "Caf\xc3\xa9");
}

TEST(DownloadName, aPathIsRefused)
{
    EXPECT_EQ(
        errorAt("https://example.com/..%2F..%2F.bashrc"),
        "The update's file name \"..%2F..%2F.bashrc\" is not a plain name.");
    EXPECT_EQ(
        errorAt("https://example.com/%2Fetc%2Fpasswd"),
        "The update's file name \"%2Fetc%2Fpasswd\" is not a plain name.");
    EXPECT_EQ(
        errorAt("https://example.com/a%5Cb"),
        "The update's file name \"a%5Cb\" is not a plain name.");
}

TEST(DownloadName, aFolderIsRefused)
{
    EXPECT_EQ(errorAt("https://example.com/"), "The update's address names no file.");
    EXPECT_EQ(errorAt("https://example.com"), "The update's address names no file.");
    EXPECT_EQ(errorAt("https://example.com/releases/"), "The update's address names no file.");
    EXPECT_EQ(
        errorAt("https://example.com/releases/.."),
        "The update's file name \"..\" is not a plain name.");
    EXPECT_EQ(
        errorAt("https://example.com/%2E%2E"),
        "The update's file name \"..\" is not a plain name.");
}

TEST(DownloadName, aHiddenNameIsRefused)
{
    EXPECT_EQ(
        errorAt("https://example.com/.bashrc"),
        "The update's file name \".bashrc\" is not a plain name.");
}

TEST(DownloadName, controlCharactersAreRefused)
{
    EXPECT_EQ(
        errorAt("https://example.com/a%00b"),
        "The update's file name \"a%00b\" is not a plain name.");
    EXPECT_EQ(
        errorAt("https://example.com/a%0Ab"),
        "The update's file name \"a%0Ab\" is not a plain name.");
    EXPECT_EQ(
        errorAt("https://example.com/a%E2%80%AEb"),
        "The update's file name \"a%E2%80%AEb\" is not a plain name.");
    EXPECT_EQ(
        errorAt("https://example.com/a%FFb"),
        "The update's file name \"a%FFb\" is not a plain name.");
}

TEST(DownloadName, aLongNameIsRefused)
{
    const std::string address = "https://example.com/";
    EXPECT_EQ(nameAt((address + std::string(200, 'a')).c_str()), std::string(200, 'a'));
    EXPECT_EQ(
        errorAt((address + std::string(201, 'a')).c_str()), "The update's file name is too long.");
}

}  // namespace
