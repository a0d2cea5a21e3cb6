#include "TarnwickDirect/SoftwareUpdate/DownloadVerification.h"

#include "Persistence/FileTrouble.h"
#include "SoftwareUpdate/Signing.h"
#include "SoftwareUpdate/UpdateErrors.h"

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using TestSupport::updateErrorOf;

class DownloadVerificationTest : public testing::Test {
protected:
    DownloadVerificationTest()
    {
        offer.fileName = QStringLiteral("Tarnwick.AppImage");
        offer.length = 5;
        offer.signature = key.sign("hello");
        FileTrouble::writeFile(file, "hello");
    }

    std::string error() const
    {
        return updateErrorOf([this] { verifyDownload(file, offer, key.publicKey()); });
    }

    FileTrouble::Folder folder;
    std::filesystem::path file = folder / "Tarnwick.AppImage";
    TestSupport::SigningKey key;
    UpdateOffer offer;
};

TEST_F(DownloadVerificationTest, leavesWhatWasOffered)
{
    EXPECT_EQ(error(), "none");
    EXPECT_EQ(FileTrouble::contentsOf(file), "hello");
}

TEST_F(DownloadVerificationTest, deletesOtherBytes)
{
    FileTrouble::writeFile(file, "jello");
    EXPECT_EQ(
        error(),
        "The download \"Tarnwick.AppImage\" was deleted because its signature is not valid.");
    EXPECT_FALSE(exists(file));
}

TEST_F(DownloadVerificationTest, deletesWhatAnotherKeySigned)
{
    offer.signature = TestSupport::SigningKey(2).sign("hello");
    EXPECT_EQ(
        error(),
        "The download \"Tarnwick.AppImage\" was deleted because its signature is not valid.");
    EXPECT_FALSE(exists(file));
}

TEST_F(DownloadVerificationTest, deletesWhatHasAnotherLengthEvenIfItIsSigned)
{
    offer.length = 6;
    EXPECT_EQ(
        error(),
        "The download \"Tarnwick.AppImage\" was deleted because it has 5 bytes instead of 6.");
    EXPECT_FALSE(exists(file));
}

TEST_F(DownloadVerificationTest, deletesAnEmptyFile)
{
    FileTrouble::writeFile(file, "");
    EXPECT_EQ(
        error(),
        "The download \"Tarnwick.AppImage\" was deleted because it has 0 bytes instead of 5.");
    EXPECT_FALSE(exists(file));
}

TEST_F(DownloadVerificationTest, aMissingFileIsAnError)
{
    std::filesystem::remove(file);
    EXPECT_EQ(
        error(), "The download \"Tarnwick.AppImage\" was deleted because it could not be read.");
}

}  // namespace
