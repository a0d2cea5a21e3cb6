#include "Tarnwick/Desktop/NotificationMessage.h"

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;

const NotificationRequest request{
    .identifier = "new-1",
    .title = "Fix <T> & \"co\"",
    .subtitle = "a < b & c",
    .sound = "message-new-instant",
    .threadIdentifier = "tarnwick.pull-requests",
    .userInfo = {}};

enum Position {
    application,
    replacedId,
    icon,
    summary,
    body,
    actions,
    hints,
    timeout
};

QVariant argument(Position position, const QStringList& capabilities)
{
    return NotificationMessage::notifyArguments(request, capabilities, 7).at(position);
}

TEST(NotificationMessage, hasTitleAndSubtitleAsSummaryAndBody)
{
    EXPECT_EQ(argument(application, {}), u"Tarnwick"_s);
    EXPECT_EQ(argument(icon, {}), u"dev.tarnwick.Tarnwick"_s);
    EXPECT_EQ(argument(summary, {}), u"Fix <T> & \"co\""_s);
    EXPECT_EQ(argument(body, {}), u"a < b & c"_s);
    EXPECT_EQ(argument(replacedId, {}), QVariant::fromValue<quint32>(7));
    EXPECT_EQ(argument(replacedId, {}).typeId(), QMetaType::UInt);
    EXPECT_EQ(argument(timeout, {}), -1);
}

TEST(NotificationMessage, escapesMarkupInTheBodyOnlyWhereTheServerReadsIt)
{
    EXPECT_EQ(argument(body, {u"body-markup"_s}), u"a &lt; b &amp; c"_s);
    EXPECT_EQ(argument(summary, {u"body-markup"_s}), u"Fix <T> & \"co\""_s);
}

TEST(NotificationMessage, hasADefaultActionAndAButtonWhereActionsAreOffered)
{
    EXPECT_EQ(
        argument(actions, {u"actions"_s}),
        (QStringList{u"default"_s, QString(), u"open"_s, u"Open"_s}));
    EXPECT_EQ(argument(actions, {}), QStringList());
}

TEST(NotificationMessage, namesTheProgramAndTheGroupInItsHints)
{
    EXPECT_EQ(
        argument(hints, {}),
        (QVariantMap{
            {u"desktop-entry"_s, u"dev.tarnwick.Tarnwick"_s},
            {u"x-dev.tarnwick.thread"_s, u"tarnwick.pull-requests"_s}}));
}

TEST(NotificationMessage, asksForTheSoundWhereSoundIsOffered)
{
    EXPECT_EQ(
        argument(hints, {u"sound"_s}).toMap().value(u"sound-name"_s), u"message-new-instant"_s);
}

}  // namespace
