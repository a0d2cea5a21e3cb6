#include "Tarnwick/Desktop/Launch.h"

#include "Fakes/EventLoop.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

using namespace TestSupport;

TEST(LaunchEnvironment, carriesTheTokenUnderBothNames)
{
    EXPECT_THAT(
        launchEnvironment({{"PATH", "/bin"}, {"DESKTOP_STARTUP_ID", "mine"}}, "theirs"),
        ElementsAre(
            Pair("DESKTOP_STARTUP_ID", "theirs"),
            Pair("PATH", "/bin"),
            Pair("XDG_ACTIVATION_TOKEN", "theirs")));
}

TEST(LaunchEnvironment, doesNotPassOnTheTokenThatStartedThisProgram)
{
    EXPECT_THAT(
        launchEnvironment(
            {{"PATH", "/bin"}, {"DESKTOP_STARTUP_ID", "mine"}, {"XDG_ACTIVATION_TOKEN", "mine"}},
            ""),
        ElementsAre(Pair("PATH", "/bin")));
}

TEST(LaunchDetached, startsTheProgramWithItsArgumentsAndEnvironment)
{
    const QTemporaryDir folder;
    const std::string said = folder.filePath(QStringLiteral("said")).toStdString();
    launchDetached(
        {"/bin/sh",
         {"-c",
          "printf '%s|%s|%s' \"$1\" \"$XDG_ACTIVATION_TOKEN\" \"$OWN\" > \"$2.new\"; "
          "mv \"$2.new\" \"$2\"",
          "sh",
          "a \"b\" 'c' \xc3\xa4\n",
          said},
         "token-1"},
        {{"PATH", "/usr/bin:/bin"}, {"OWN", "value"}});
    QFile file(QString::fromStdString(said));
    ASSERT_TRUE(eventually([&] { return file.exists(); }));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), "a \"b\" 'c' \xc3\xa4\n|token-1|value");
}

TEST(LaunchDetached, saysNothingWhenThereIsNoSuchProgram)
{
    EXPECT_NO_THROW(launchDetached({"/nonexistent/program", {}, {}}, {}));
}

}  // namespace
