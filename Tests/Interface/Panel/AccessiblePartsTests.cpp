#include "Tarnwick/Interface/Panel/AccessibleParts.h"

#include "Tarnwick/Interface/Panel/Alert.h"
#include "Tarnwick/Interface/Panel/EditorOverlay.h"
#include "Tarnwick/Interface/Panel/InfoBar.h"

#include <QAccessible>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

QAccessibleInterface* interfaceOf(QWidget& widget)
{
    return QAccessible::queryAccessibleInterface(&widget);
}

class AccessiblePartsTests : public testing::Test {
protected:
    AccessiblePartsTests() { installAccessibleParts(); }

    QWidget panel;
};

TEST_F(AccessiblePartsTests, cardsAreModalDialogsWithTheirTitleAndMessage)
{
    Alert alert(
        QStringLiteral("Unable to Open Editor"),
        {.primary = QStringLiteral("OK"), .cancel = {}, .copyHelp = {}},
        &panel);
    alert.setMessage(QStringLiteral("Nothing is there."));
    QAccessibleInterface* const card = interfaceOf(alert);
    EXPECT_EQ(card->role(), QAccessible::Dialog);
    EXPECT_TRUE(card->state().modal);
    EXPECT_EQ(card->text(QAccessible::Name), QStringLiteral("Unable to Open Editor"));
    EXPECT_EQ(card->text(QAccessible::Description), QStringLiteral("Nothing is there."));
}

TEST_F(AccessiblePartsTests, theOverlaysBarIsABusyProgressBar)
{
    EditorOverlay overlay(&panel);
    QAccessibleInterface* const card = interfaceOf(overlay);
    EXPECT_EQ(card->role(), QAccessible::Dialog);
    int bars = 0;
    for (int child = 0; child < card->childCount(); ++child) {
        if (card->child(child)->role() == QAccessible::ProgressBar) {
            EXPECT_TRUE(card->child(child)->state().busy);
            EXPECT_EQ(card->child(child)->text(QAccessible::Name), QStringLiteral("Progress"));
            ++bars;
        }
    }
    EXPECT_EQ(bars, 1);
}

TEST_F(AccessiblePartsTests, infoBarsAreReadAsWhatTheySay)
{
    InfoBar error(InfoBar::Tone::error, QStringLiteral("error"), &panel);
    error.setText(QStringLiteral("github.com\n  X token refused"));
    EXPECT_EQ(interfaceOf(error)->role(), QAccessible::AlertMessage);
    EXPECT_EQ(
        interfaceOf(error)->text(QAccessible::Name), QStringLiteral("github.com: token refused"));
    InfoBar quiet(InfoBar::Tone::quiet, QStringLiteral("quiet"), &panel);
    EXPECT_EQ(interfaceOf(quiet)->role(), QAccessible::Notification);
}

}  // namespace
}  // namespace Tarnwick
