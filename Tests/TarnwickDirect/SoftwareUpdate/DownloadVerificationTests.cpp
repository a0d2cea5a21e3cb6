#include "TarnwickDirect/SoftwareUpdate/DownloadVerification.h"

#include "Persistence/FileTrouble.h"
#include "SoftwareUpdate/Packages.h"
#include "SoftwareUpdate/Signing.h"
#include "Support/Errors.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;

class DownloadVerificationTest : public testing::Test {
protected:
    DownloadVerificationTest() { offerFile("2.0", debianPackage("2.0-1")); }

    /// Makes the file one of these bytes, offered as this version with a signature of its own.
    void offerFile(const char* version, const QByteArray& bytes)
    {
        offer.version = QString::fromUtf8(version);
        offer.fileName = QStringLiteral("tarnwick.deb");
        offer.length = std::uint64_t(bytes.size());
        offer.signature = key.sign(bytes);
        writeFile(file, bytes.toStdString());
    }

    /// Why the file was deleted; "none" where it was not.
    std::string reason() const
    {
        const std::string error = messageOf<UpdateError>([this] {
            verifyDownload(
                file,
                offer,
                {.key = key.publicKey(), .package = QStringLiteral("tarnwick")},
                [](const QString& program, const QStringList& arguments) {
                    return outputOf(program, arguments, {});
                });
        });
        EXPECT_EQ(exists(file), error == "none");
        const std::string beginning = "The download \"tarnwick.deb\" was deleted because ";
        return error.starts_with(beginning) ? error.substr(beginning.size()) : error;
    }

    Folder folder;
    std::filesystem::path file = folder / "tarnwick.deb";
    SigningKey key;
    UpdateOffer offer;
};

TEST_F(DownloadVerificationTest, leavesWhatWasOffered)
{
    EXPECT_EQ(reason(), "none");
    EXPECT_EQ(contentsOf(file), debianPackage("2.0-1").toStdString());
}

TEST_F(DownloadVerificationTest, deletesOtherBytes)
{
    QByteArray other = debianPackage("2.0-1");
    other[other.size() / 2] = 'q';
    writeFile(file, other.toStdString());
    EXPECT_EQ(reason(), "its signature is not valid.");
}

TEST_F(DownloadVerificationTest, deletesWhatAnotherKeySigned)
{
    offer.signature = SigningKey(2).sign(debianPackage("2.0-1"));
    EXPECT_EQ(reason(), "its signature is not valid.");
}

TEST_F(DownloadVerificationTest, deletesWhatHasAnotherLengthEvenIfItIsSigned)
{
    offerFile("2.0", "hello");
    offer.length = 6;
    EXPECT_EQ(reason(), "it has 5 bytes instead of 6.");
    writeFile(file, "");
    EXPECT_EQ(reason(), "it has 0 bytes instead of 6.");
}

TEST_F(DownloadVerificationTest, aMissingFileIsAnError)
{
    std::filesystem::remove(file);
    EXPECT_EQ(reason(), "it could not be read.");
}

TEST_F(DownloadVerificationTest, deletesAnOldReleaseThatIsOfferedUnderANewNumber)
{
    offerFile("2.0", debianPackage("1.9-1"));
    EXPECT_EQ(reason(), "it is version 1.9-1, not 2.0.");
    offerFile("2.0", debianPackage("2.0~rc1-1"));
    EXPECT_EQ(reason(), "it is version 2.0~rc1-1, not 2.0.");
}

TEST_F(DownloadVerificationTest, deletesAnotherPackageOfTheSameKey)
{
    offerFile("2.0", debianPackage("2.0-1", "tarnwick-tools"));
    EXPECT_EQ(reason(), "it is the package tarnwick-tools, not tarnwick.");
}

TEST_F(DownloadVerificationTest, deletesWhatIsSignedButNoPackage)
{
    offerFile("2.0", "hello");
    EXPECT_EQ(reason(), "dpkg-deb cannot read it.");
}

}  // namespace
