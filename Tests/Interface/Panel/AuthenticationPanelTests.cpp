#include "Tarnwick/Interface/Panel/AuthenticationPanel.h"

#include "Tarnwick/Interface/Look/Appearance.h"
#include "Tarnwick/Interface/Panel/MessageText.h"

#include <QAbstractButton>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

/// As gh tells of a token that is no longer valid.
const QString refusal = QStringLiteral(
    "github.com\n"
    "  X github.com: authentication failed\n"
    "  - The github.com token in /home/mira/.config/gh/hosts.yml is no longer valid.\n"
    "  - To re-authenticate, run: gh auth login -h github.com\n"
    "  - To forget about this host, run: gh auth logout -h github.com");

class AuthenticationPanelTests : public testing::Test {
protected:
    void show(const QString& message, const QSize& size)
    {
        panel.show(AuthenticationContent{
            QStringLiteral("person.crop.circle.badge.exclamationmark"),
            QStringLiteral("Sign in to GitHub"),
            message});
        panel.resize(size);
        panel.QWidget::show();
    }

    const QWidget& part(const char* name) const
    {
        return *panel.findChild<QWidget*>(QLatin1String(name));
    }

    void expectEverythingInSight() const
    {
        const char* const order[] = {
            "authenticationTitle", "authenticationMessage", "authenticationHint", "copyLogin"};
        int bottom = 0;
        for (const char* const name : order) {
            EXPECT_GE(part(name).y(), bottom) << name;
            bottom = part(name).geometry().bottom() - 8;
        }
        for (const char* const name : {"copyLogin", "authenticationTryAgain"}) {
            EXPECT_LE(part(name).geometry().bottom(), panel.height()) << name;
        }
    }

    Appearance appearance{1.0};
    AuthenticationPanel panel{appearance, nullptr};
};

TEST_F(AuthenticationPanelTests, aLongMessageScrollsInALowWindowAndTheButtonsStay)
{
    for (const int height : {500, 244, 212, 180}) {
        SCOPED_TRACE(height);
        show(refusal, QSize(360, height));
        expectEverythingInSight();
        const auto& message = dynamic_cast<const MessageText&>(part("authenticationMessage"));
        EXPECT_GE(message.height(), 18);
        EXPECT_EQ(message.isScrollable(), height < 500);
        EXPECT_EQ(message.focusPolicy(), height < 500 ? Qt::TabFocus : Qt::NoFocus);
    }
}

TEST_F(AuthenticationPanelTests, aShortMessageFitsTheLowestWindow)
{
    show(QStringLiteral("GitHub CLI is not logged in."), QSize(360, 244));
    expectEverythingInSight();
    EXPECT_FALSE(dynamic_cast<const MessageText&>(part("authenticationMessage")).isScrollable());
}

}  // namespace
}  // namespace Tarnwick
