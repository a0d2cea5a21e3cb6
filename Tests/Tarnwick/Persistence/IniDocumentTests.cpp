#include "Tarnwick/Persistence/IniDocument.h"

#include <gmock/gmock.h>

namespace {

using Tarnwick::IniDocument;
using testing::Optional;

std::string changed(std::string_view text)
{
    IniDocument document(text);
    document.set("key", "new");
    return document.text();
}

TEST(IniDocument, readsKeysOfTheGeneralSectionAndBeforeAnySection)
{
    const IniDocument document("first = 1\n[Other]\nsecond=2\n[General]\n third=\t3 \r\n");
    EXPECT_THAT(document.value("first"), Optional(std::string_view("1")));
    EXPECT_EQ(document.value("second"), std::nullopt);
    EXPECT_THAT(document.value("third"), Optional(std::string_view("3")));
}

TEST(IniDocument, passesOverCommentsAndLinesThatMeanNothing)
{
    const IniDocument document(";key=1\n#key=2\nkey\n");
    EXPECT_EQ(document.value("key"), std::nullopt);
    EXPECT_EQ(document.value(";key"), std::nullopt);
}

TEST(IniDocument, takesTheLastOfSeveralValues)
{
    EXPECT_THAT(IniDocument("key=1\nkey=2=3\n").value("key"), Optional(std::string_view("2=3")));
    EXPECT_EQ(changed("key=1\nkey=2\n"), "key=1\nkey=new\n");
}

TEST(IniDocument, findsKeysAfterOthersWereAdded)
{
    IniDocument document("first=1\n[Other]\nkey=2\n");
    document.set("second", "2");
    document.set("third", "3");
    document.set("first", "4");
    EXPECT_THAT(document.value("first"), Optional(std::string_view("4")));
    EXPECT_THAT(document.value("second"), Optional(std::string_view("2")));
    EXPECT_THAT(document.value("third"), Optional(std::string_view("3")));
    EXPECT_EQ(document.value("key"), std::nullopt);
    EXPECT_EQ(document.text(), "first=4\nsecond=2\nthird=3\n[Other]\nkey=2\n");
}

TEST(IniDocument, takesOutEveryLineOfAKeyAndNoOther)
{
    IniDocument document(
        "key=1\n;key=2\n key = 3 \nkeys=4\n[Other]\nkey=5\n[General]\nkey=6\nlast=7\n");
    document.remove({"key", "absent"});
    EXPECT_EQ(document.text(), ";key=2\nkeys=4\n[Other]\nkey=5\n[General]\nlast=7\n");
    EXPECT_EQ(document.value("key"), std::nullopt);
    EXPECT_THAT(document.value("last"), Optional(std::string_view("7")));
    document.set("key", "8");
    EXPECT_EQ(document.text(), ";key=2\nkeys=4\n[Other]\nkey=5\n[General]\nlast=7\nkey=8\n");
}

TEST(IniDocument, listsTheKeysWithAPrefix)
{
    const IniDocument document("a.2=1\nb.1=1\na.1=1\na.2=2\n[Other]\na.3=1\n");
    EXPECT_THAT(document.keys("a."), testing::ElementsAre("a.1", "a.2"));
    EXPECT_THAT(document.keys("c."), testing::IsEmpty());
}

TEST(IniDocument, beginsWithItsSection)
{
    EXPECT_EQ(changed(""), "[General]\nkey=new\n");
}

TEST(IniDocument, changesOneLineOnly)
{
    EXPECT_EQ(
        changed("; a\r\n[General]\n\n key = old \nrest"), "; a\r\n[General]\n\nkey=new\nrest\n");
}

TEST(IniDocument, addsALineAtTheEndOfTheGeneralKeys)
{
    EXPECT_EQ(changed("[General]\na=1\n\n[Z]\nkey=2\n"), "[General]\na=1\nkey=new\n\n[Z]\nkey=2\n");
    EXPECT_EQ(changed("[Z]\nkey=2\n"), "key=new\n[Z]\nkey=2\n");
    EXPECT_EQ(changed("\n\n"), "key=new\n\n\n");
}

}  // namespace
