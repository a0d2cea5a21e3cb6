#include "Tarnwick/Desktop/AutostartLoginItem.h"

#include "Support/Errors.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

using namespace Tarnwick;
using namespace testing;

class AutostartItem : public testing::Test {
protected:
    QString path() const
    {
        return folder.filePath(QStringLiteral("autostart/dev.tarnwick.Tarnwick.desktop"));
    }

    AutostartLoginItem item(const std::string& executable = "/usr/bin/tarnwick") const
    {
        return {path().toStdString(), executable};
    }

    void write(const QByteArray& text) const
    {
        item().registerItem();
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(text);
    }

    std::string contents() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no file";
    }

    QTemporaryDir folder;
};

TEST_F(AutostartItem, isOffWhereThereIsNoEntry)
{
    EXPECT_FALSE(item().isEnabled());
}

TEST_F(AutostartItem, isOnOnceItIsRegisteredAndOffAgainAfterwards)
{
    item().registerItem();
    EXPECT_TRUE(item().isEnabled());
    EXPECT_THAT(contents(), StartsWith("[Desktop Entry]\nType=Application\nName=Tarnwick\n"));
    EXPECT_THAT(contents(), HasSubstr("\nExec=/usr/bin/tarnwick --background\n"));
    item().unregisterItem();
    EXPECT_FALSE(item().isEnabled());
    EXPECT_EQ(contents(), "no file");
    EXPECT_NO_THROW(item().unregisterItem());
}

TEST_F(AutostartItem, leavesNothingButTheEntryInTheFolder)
{
    item().registerItem();
    item().registerItem();
    EXPECT_EQ(QFileInfo(path()).dir().entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(AutostartItem, isOffWhereTheDesktopSwitchedItOff)
{
    write("[Desktop Entry]\nType=Application\nHidden=true\n");
    EXPECT_FALSE(item().isEnabled());
    write("[Desktop Entry]\nX-GNOME-Autostart-enabled = false\r\nHidden=false\n");
    EXPECT_FALSE(item().isEnabled());
    write("# Hidden=true\n[Desktop Entry]\nHidden=false\n[Desktop Action x]\nHidden=true\n");
    EXPECT_TRUE(item().isEnabled());
}

TEST_F(AutostartItem, isOnAgainOnceItIsRegisteredAnew)
{
    write("[Desktop Entry]\nHidden=true\n");
    item().registerItem();
    EXPECT_TRUE(item().isEnabled());
}

TEST_F(AutostartItem, isOffWhereTheEntryCannotBeRead)
{
    ASSERT_TRUE(QDir().mkpath(path()));
    EXPECT_FALSE(item().isEnabled());
}

TEST_F(AutostartItem, saysInASentenceWhyItCannotBeChanged)
{
    QFile file(folder.filePath(QStringLiteral("autostart")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(
        TestSupport::messageOf([this] { item().registerItem(); }),
        "The entry " + path().toStdString() + " cannot be changed (Not a directory).");
}

TEST(AutostartEntry, quotesThePathByTheRulesOfDesktopEntries)
{
    const auto lineOf = [](const std::string& executable) {
        const std::string text = AutostartEntry::text(executable);
        const std::size_t start = text.find("Exec=");
        return text.substr(start, text.find('\n', start) - start);
    };
    EXPECT_EQ(lineOf("/opt/My Apps/tarnwick"), R"(Exec="/opt/My Apps/tarnwick" --background)");
    EXPECT_EQ(lineOf("/opt/100%/tarnwick"), "Exec=/opt/100%%/tarnwick --background");
    EXPECT_EQ(lineOf("/a\"b/t"), R"(Exec="/a\\"b/t" --background)");
    EXPECT_EQ(lineOf("/a$b`c/t"), R"(Exec="/a\\$b\\`c/t" --background)");
    EXPECT_EQ(lineOf("/a\\b/t"), R"(Exec="/a\\\\b/t" --background)");
    EXPECT_EQ(lineOf("/a\nb/t"), R"(Exec="/a\nb/t" --background)");
}

TEST(AutostartEntry, passesTheDesktopsOwnCheck)
{
    const QString check = QStandardPaths::findExecutable(QStringLiteral("desktop-file-validate"));
    if (check.isEmpty()) {
        GTEST_SKIP() << "desktop-file-validate is not installed";
    }
    const QTemporaryDir folder;
    for (const char* const executable : {"/usr/bin/tarnwick", "/opt/My $%\\ \"Apps\"/tarnwick"}) {
        const auto file = AutostartEntry::file({{"XDG_CONFIG_HOME", folder.path().toStdString()}});
        AutostartLoginItem(file, executable).registerItem();
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(check, {QString::fromStdString(file.string())});
        ASSERT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.readAll().toStdString(), "") << executable;
        EXPECT_EQ(process.exitCode(), 0);
    }
}

TEST(AutostartEntry, liesInTheUsersConfigurationFolder)
{
    EXPECT_EQ(
        AutostartEntry::file({{"XDG_CONFIG_HOME", "/etc/octo"}, {"HOME", "/home/octo"}}),
        "/etc/octo/autostart/dev.tarnwick.Tarnwick.desktop");
    EXPECT_EQ(
        AutostartEntry::file({{"HOME", "/home/octo"}}),
        "/home/octo/.config/autostart/dev.tarnwick.Tarnwick.desktop");
    EXPECT_EQ(
        AutostartEntry::file({{"XDG_CONFIG_HOME", "relative"}, {"HOME", "/home/octo"}}),
        "/home/octo/.config/autostart/dev.tarnwick.Tarnwick.desktop");
}

}  // namespace
