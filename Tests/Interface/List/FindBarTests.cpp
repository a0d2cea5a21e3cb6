#include "Tarnwick/Interface/List/FindBar.h"

#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;

class FindBarTests : public testing::Test {
protected:
    FindBarTests()
    {
        appearance.setPreferences({.reducedMotion = true, .higherContrast = false});
        window.resize(420, 600);
        bar.resize(420, 0);
        window.show();
    }

    QLineEdit& field() { return *bar.findChild<QLineEdit*>(u"findField"_s); }

    Appearance& appearance = setApplicationStyle(1.0);
    QWidget window;
    FindBar bar{&window};
};

TEST_F(FindBarTests, isClosedAtFirst)
{
    EXPECT_FALSE(bar.isOpen());
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(FindBarTests, opensWithTheCaretInTheField)
{
    bar.open();
    EXPECT_TRUE(bar.isOpen());
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.height(), 40);
    EXPECT_EQ(window.focusWidget(), &field());
    EXPECT_EQ(field().geometry(), QRect(16, 6, 388, 28));
}

TEST_F(FindBarTests, saysEachTextThatIsTyped)
{
    bar.open();
    QSignalSpy texts(&bar, &FindBar::findTextChanged);
    QTest::keyClicks(&field(), u"no"_s);
    ASSERT_EQ(texts.size(), 2);
    EXPECT_EQ(texts[1][0].toString(), u"no"_s);
}

TEST_F(FindBarTests, saysHowManyMatchWhileThereIsSomethingToFind)
{
    bar.open();
    bar.setMatches(12, 12);
    EXPECT_EQ(bar.findChild<QLabel*>(u"findMatches"_s)->text(), QString());
    QTest::keyClicks(&field(), u"north"_s);
    bar.setMatches(7, 12);
    EXPECT_EQ(bar.findChild<QLabel*>(u"findMatches"_s)->text(), u"7 of 12"_s);
}

TEST_F(FindBarTests, downAndTabGoToTheList)
{
    bar.open();
    const QSignalSpy left(&bar, &FindBar::leftForList);
    QTest::keyClick(&field(), Qt::Key_Down);
    EXPECT_EQ(left.size(), 1);
    QTest::keyClick(&field(), Qt::Key_Tab);
    EXPECT_EQ(left.size(), 2);
    EXPECT_TRUE(bar.isOpen());
}

TEST_F(FindBarTests, returnWantsTheHitAndWithoutATextTheList)
{
    bar.open();
    const QSignalSpy left(&bar, &FindBar::leftForList);
    const QSignalSpy hits(&bar, &FindBar::hitRequested);
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(left.size(), 1);
    QTest::keyClicks(&field(), u"no"_s);
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(left.size(), 1);
    EXPECT_EQ(hits.size(), 1);
}

TEST_F(FindBarTests, escapeClearsAndCloses)
{
    bar.open();
    QTest::keyClicks(&field(), u"north"_s);
    QSignalSpy texts(&bar, &FindBar::findTextChanged);
    const QSignalSpy closed(&bar, &FindBar::closed);
    QTest::keyClick(&field(), Qt::Key_Escape);
    ASSERT_EQ(texts.size(), 1);
    EXPECT_EQ(texts[0][0].toString(), QString());
    EXPECT_EQ(closed.size(), 1);
    EXPECT_FALSE(bar.isOpen());
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(FindBarTests, theCrossClosesAsEscapeDoes)
{
    bar.open();
    QTest::keyClicks(&field(), u"north"_s);
    bar.findChild<QAbstractButton*>(u"findClose"_s)->click();
    EXPECT_EQ(bar.text(), QString());
    EXPECT_FALSE(bar.isOpen());
}

TEST_F(FindBarTests, slidesOpenWhereMotionIsWanted)
{
    appearance.setPreferences({.reducedMotion = false, .higherContrast = false});
    bar.open();
    EXPECT_LT(bar.height(), 40);
    EXPECT_TRUE(QTest::qWaitFor([this] { return bar.height() == 40; }, 2000));
    bar.close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !bar.isVisible(); }, 2000));
}

}  // namespace
