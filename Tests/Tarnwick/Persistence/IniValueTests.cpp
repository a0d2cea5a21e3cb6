#include "Tarnwick/Persistence/IniValue.h"

#include "Support/PullRequests.h"

#include <QDateTime>
#include <QStringList>
#include <QTimeZone>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;
using IniValue::decode;
using IniValue::encode;
using IniValue::encodeKey;

TEST(IniValue, writesWhatNeedsNoQuotesAsItIs)
{
    EXPECT_EQ(encode(true), "true");
    EXPECT_EQ(encode(QVariant::fromValue<qlonglong>(1800)), "1800");
    EXPECT_EQ(encode(u"/home/octo/Проекты 2"_s), "/home/octo/Проекты 2");
    EXPECT_EQ(encode(QStringList{u"Changes Requested"_s, u"None"_s}), "Changes Requested, None");
}

TEST(IniValue, readsKeysBackAndNoOthers)
{
    const QString key = u"lastSeen.github|github.com|octo/тест|12"_s;
    EXPECT_EQ(IniValue::decodeKey(encodeKey(key)), key);
    EXPECT_EQ(IniValue::decodeKey("a b"), std::nullopt);
    EXPECT_EQ(IniValue::decodeKey("a%zz"), std::nullopt);
    EXPECT_EQ(IniValue::decodeKey("a%7c"), std::nullopt) << "small letters";
}

TEST(IniValue, quotesWhatWouldMeanSomethingElse)
{
    EXPECT_EQ(encode(u""_s), R"("")");
    EXPECT_EQ(encode(u"a, b"_s), R"("a, b")");
    EXPECT_EQ(encode(u" a"_s), R"(" a")");
    EXPECT_EQ(encode(u"@Empty()"_s), "\"@Empty()\"");
    EXPECT_EQ(encode(u"\"\\\n\t\x01\x7f"_s), "\"\\\"\\\\\\n\\t\\x01\\x7F\"");
    EXPECT_EQ(encode(QStringList{u"a"_s, u""_s}), R"(a, "")");
}

TEST(IniValue, hasFormsOfItsOwnForEmptyListsAndDates)
{
    EXPECT_EQ(encode(QStringList()), "@Empty()");
    EXPECT_EQ(decode("@Empty()"), QVariant(QStringList()));
    const QDateTime date(QDate(2024, 5, 1), QTime(9, 30), QTimeZone::utc());
    EXPECT_EQ(encode(date), "@Date(2024-05-01T09:30:00Z)");
    EXPECT_EQ(decode("@Date(2024-05-01T09:30:00Z)"), QVariant(date));
    EXPECT_EQ(decode("@Date(2024-05-01)"), QVariant(u"@Date(2024-05-01)"_s));
}

TEST(IniValue, readsWhatPeopleWrite)
{
    EXPECT_EQ(decode(""), QVariant(u""_s));
    EXPECT_EQ(decode("Open,Draft"), QVariant(QStringList{u"Open"_s, u"Draft"_s}));
    EXPECT_EQ(decode("Open ,  Draft"), QVariant(QStringList{u"Open"_s, u"Draft"_s}));
    EXPECT_EQ(decode("Open,"), QVariant(QStringList{u"Open"_s, u""_s}));
    EXPECT_EQ(decode("\"a, b\" , c"), QVariant(QStringList{u"a, b"_s, u"c"_s}));
    EXPECT_EQ(decode(R"(C:\dir\x)"), QVariant(uR"(C:\dir\x)"_s));
    EXPECT_EQ(decode(R"("open)"), QVariant(u"open"_s));
    EXPECT_EQ(decode("\xff"), QVariant(u"\uFFFD"_s));
}

TEST(IniValue, writesOtherBytesOfKeysAsTheirDigits)
{
    EXPECT_EQ(encodeKey(u"filters.status"_s), "filters.status");
    EXPECT_EQ(encodeKey(u"a/b|c%2F=é["_s), "a%2Fb%7Cc%252F%3D%C3%A9%5B");
}

RC_GTEST_PROP(IniValue, bringsTextsBack, ())
{
    const QString text = QString::fromStdString(*TestSupport::anyText());
    RC_ASSERT(decode(encode(text)) == QVariant(text));
    RC_ASSERT(encode(text).find('\n') == std::string::npos);
}

RC_GTEST_PROP(IniValue, bringsListsBack, ())
{
    QStringList list{u"first"_s};
    for (const auto& text : *rc::gen::container<std::vector<std::string>>(TestSupport::anyText())) {
        list.append(QString::fromStdString(text));
    }
    RC_PRE(list.size() > 1);
    RC_ASSERT(decode(encode(list)) == QVariant(list));
}

RC_GTEST_PROP(IniValue, makesSomethingOfAnyBytes, (const std::string& bytes))
{
    const auto type = decode(bytes).typeId();
    RC_ASSERT(
        type == QMetaType::QString || type == QMetaType::QStringList
        || type == QMetaType::QDateTime);
}

RC_GTEST_PROP(IniValue, keepsDifferentKeysApart, ())
{
    const QString one = QString::fromStdString(*TestSupport::anyText());
    const QString other = QString::fromStdString(*TestSupport::anyText());
    RC_ASSERT((encodeKey(one) == encodeKey(other)) == (one == other));
}

}  // namespace
