#include "Tarnwick/Desktop/NotificationPresentationDelegate.h"

#include "Fakes/EventLoop.h"
#include "Fakes/RecordingSurroundings.h"

#include <string>
#include <thread>
#include <vector>

namespace {

using namespace TestSupport;

class NotificationDelegate : public testing::Test {
protected:
    void receive(const NotificationResponse& response)
    {
        NotificationPresentationDelegate(std::make_shared<ExternalNavigation>(desktop.navigation()))
            .didReceive(response);
        EXPECT_THAT(desktop.journal(), IsEmpty());
        processEvents();
    }

    RecordingSurroundings desktop;
};

TEST_F(NotificationDelegate, opensTheAddressOfTheClickedNotificationWithItsToken)
{
    receive({"default", {{"pullRequestURL", "https://github.com/octo/tools/pull/7"}}, "token-7"});
    EXPECT_THAT(
        desktop.journal(),
        ElementsAre(
            "dismiss any",
            "launch /usr/bin/xdg-open [https://github.com/octo/tools/pull/7] token token-7"));
}

TEST_F(NotificationDelegate, tellsWhatItOpensAndNothingElse)
{
    NotificationPresentationDelegate delegate(
        std::make_shared<ExternalNavigation>(desktop.navigation()));
    std::vector<std::string> opened;
    delegate.setOpened([&](const Url& url) { opened.push_back(url.text); });
    delegate.didReceive(
        {"default", {{"pullRequestURL", "https://github.com/octo/tools/pull/7"}}, {}});
    delegate.didReceive(
        {"dismiss", {{"pullRequestURL", "https://github.com/octo/tools/pull/8"}}, {}});
    delegate.didReceive({"default", {{"pullRequestURL", "file:///etc/passwd"}}, {}});
    processEvents();
    EXPECT_THAT(opened, ElementsAre("https://github.com/octo/tools/pull/7"));
}

TEST_F(NotificationDelegate, opensASchemeInCapitals)
{
    receive({"default", {{"pullRequestURL", "HTTPS://github.com/octo"}}, {}});
    EXPECT_EQ(
        desktop.journal().back(), "launch /usr/bin/xdg-open [HTTPS://github.com/octo] token ");
}

TEST_F(NotificationDelegate, opensNothingButWebAddresses)
{
    for (const char* const text :
         {"file:///etc/passwd",
          "javascript:alert(1)",
          "httpsx://host",
          "no address",
          "",
          "--help"}) {
        receive({"default", {{"pullRequestURL", text}}, {}});
    }
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(NotificationDelegate, opensNothingWithoutAnAddress)
{
    receive({"default", {}, {}});
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(NotificationDelegate, opensNothingForAnotherAction)
{
    receive({"dismiss", {{"pullRequestURL", "https://github.com/octo"}}, {}});
    receive({"", {{"pullRequestURL", "https://github.com/octo"}}, {}});
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(NotificationDelegate, opensOnTheMainThreadWhereverTheResponseArrives)
{
    const NotificationPresentationDelegate delegate(
        std::make_shared<ExternalNavigation>(desktop.navigation()));
    std::thread([&] {
        delegate.didReceive({"default", {{"pullRequestURL", "http://git.example/1"}}, {}});
    }).join();
    EXPECT_THAT(desktop.journal(), IsEmpty());
    processEvents();
    EXPECT_EQ(desktop.journal().back(), "launch /usr/bin/xdg-open [http://git.example/1] token ");
}

}  // namespace
