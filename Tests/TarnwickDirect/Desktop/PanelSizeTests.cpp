#include "TarnwickDirect/Application/PanelSize.h"

#include "Tarnwick/Persistence/IniDefaultsStore.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

namespace PanelSize = TarnwickDirect::PanelSize;

class PanelSizes : public testing::Test {
protected:
    QTemporaryDir folder;
    Tarnwick::IniDefaultsStore store{folder.filePath(QStringLiteral("settings.ini")).toStdString()};
};

TEST_F(PanelSizes, areThoseOfTheFirstStartTimesTheTextScale)
{
    EXPECT_EQ(PanelSize::read(store, 1.0), QSize(440, 620));
    EXPECT_EQ(PanelSize::read(store, 1.5), QSize(660, 930));
}

TEST_F(PanelSizes, areKeptAsTheUserLeftThem)
{
    PanelSize::write(store, QSize(512, 700));
    EXPECT_EQ(store.value("panel.size"), "512x700");
    EXPECT_EQ(PanelSize::read(store, 1.5), QSize(512, 700));
}

TEST_F(PanelSizes, thatMakeNoSenseAreNotTaken)
{
    for (const char* const text :
         {"", "440", "440x", "x620", "0x620", "-440x620", "440x620x1", "440 x 620", "999999x620"}) {
        store.set("panel.size", text);
        EXPECT_EQ(PanelSize::read(store, 1.0), QSize(440, 620)) << text;
    }
    store.set("panel.size", "440, 620");
    EXPECT_EQ(PanelSize::read(store, 1.0), QSize(440, 620));
}

}  // namespace
