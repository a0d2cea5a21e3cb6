#include "TarnwickDirect/SoftwareUpdate/Installation.h"

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::ElementsAre;
using Kind = Installation::Kind;

class InstallationTest : public testing::Test {
protected:
    /// Answers each question in turn, and later ones not at all.
    Installation find(std::vector<const char*> answers)
    {
        calls.clear();
        return findInstallation(
            QStringLiteral("/usr/bin/tarnwick"),
            [&](const QString& program, const QStringList& arguments) {
                calls.push_back((program + u' ' + arguments.join(u' ')).toStdString());
                const auto answer = calls.size() - 1;
                return QString::fromUtf8(answer < answers.size() ? answers[answer] : "");
            });
    }

    std::vector<std::string> calls;
};

TEST_F(InstallationTest, whatARepositoryHasBelongsToThePackageManager)
{
    const Installation found = find(
        {"tarnwick: /usr/bin/tarnwick\n",
         " tarnwick | 0.1.0-1 | https://deb.example.org stable/main amd64 Packages\n"});
    EXPECT_EQ(found, (Installation{Kind::repositoryPackage, QStringLiteral("tarnwick")}));
    EXPECT_FALSE(found.takesPackages());
    EXPECT_THAT(
        calls,
        ElementsAre(
            "/usr/bin/dpkg-query -S /usr/bin/tarnwick", "/usr/bin/apt-cache madison tarnwick"));
}

TEST_F(InstallationTest, aPackageThatNoRepositoryHasWasInstalledByHand)
{
    const Installation found = find({"tarnwick:amd64: /usr/bin/tarnwick\n", "", "0.2.0~dev-1"});
    EXPECT_EQ(
        found,
        (Installation{
            Kind::debianPackage, QStringLiteral("tarnwick:amd64"), QStringLiteral("0.2.0~dev")}));
    EXPECT_TRUE(found.takesPackages());
    EXPECT_EQ(calls.back(), "/usr/bin/dpkg-query -W -f=${Version} tarnwick:amd64");
}

TEST_F(InstallationTest, aFileThatNoPackageOwnsWasBuiltHere)
{
    EXPECT_EQ(find({""}), Installation{});
    EXPECT_FALSE(Installation{}.takesPackages());
}

TEST_F(InstallationTest, whatDpkgSaysOfSeveralPackagesOrDiversionsSettlesNothing)
{
    EXPECT_EQ(find({"one, other: /usr/bin/tarnwick\n"}).kind, Kind::source);
    EXPECT_EQ(find({"diversion by other from: /usr/bin/tarnwick\n"}).kind, Kind::source);
}

TEST(Command, yieldsWhatIsPrintedByWhatSucceeds)
{
    const auto shell = [](const char* script, const std::stop_token& stopToken = {}) {
        return outputOf(
                   QStringLiteral("/bin/sh"),
                   {QStringLiteral("-c"), QString::fromUtf8(script)},
                   stopToken)
            .toStdString();
    };
    EXPECT_EQ(shell("echo printed; echo complaint >&2"), "printed\n");
    EXPECT_EQ(shell("echo printed; exit 1"), "");
    EXPECT_EQ(shell("echo printed; kill $$"), "");
    EXPECT_EQ(outputOf(QStringLiteral("/nowhere"), {}, {}), QString());
    std::stop_source stopped;
    stopped.request_stop();
    EXPECT_EQ(shell("echo printed; exec sleep 1000", stopped.get_token()), "");
}

}  // namespace
