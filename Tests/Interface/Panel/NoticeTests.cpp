#include "Tarnwick/Interface/Panel/Notice.h"

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

class NoticeTests : public testing::Test {
protected:
    void show(const QString& message, const QSize& size)
    {
        panel.show(
            *panelContent({MenuState::Kind::signedOut, message.toStdString()}, false, false));
        panel.resize(size);
        panel.QWidget::show();
    }

    const QWidget& part(const char* name) const
    {
        return *panel.findChild<QWidget*>(QLatin1String(name));
    }

    void expectEverythingInSight() const
    {
        const char* const order[] = {"noticeTitle", "noticeMessage", "noticeHint", "copyLogin"};
        int bottom = 0;
        for (const char* const name : order) {
            EXPECT_GE(part(name).y(), bottom) << name;
            bottom = part(name).geometry().bottom();
        }
        for (const char* const name : {"copyLogin", "tryAgain"}) {
            EXPECT_LE(part(name).geometry().bottom(), panel.height()) << name;
        }
    }

    Notice panel{nullptr};
};

TEST_F(NoticeTests, aLongMessageScrollsInALowWindowAndTheButtonsStay)
{
    for (const int height : {500, 244, 212, 180}) {
        SCOPED_TRACE(height);
        show(refusal, QSize(360, height));
        expectEverythingInSight();
        const QWidget& message = part("noticeMessage");
        EXPECT_GE(message.height(), 18);
        EXPECT_EQ(message.focusPolicy(), height < 500 ? Qt::TabFocus : Qt::NoFocus);
    }
}

TEST_F(NoticeTests, aShortMessageFitsTheLowestWindow)
{
    show(QStringLiteral("GitHub CLI is not logged in."), QSize(360, 244));
    expectEverythingInSight();
    EXPECT_EQ(part("noticeMessage").focusPolicy(), Qt::NoFocus);
}

}  // namespace
}  // namespace Tarnwick
