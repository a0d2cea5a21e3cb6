#include "TarnwickDirect/Tray/TarnwickMenuLabel.h"

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect::TarnwickMenuLabel;
using testing::UnorderedElementsAre;

constexpr Mark blockedMark{.isBlocked = true, .isTrouble = false};
constexpr Mark troubleMark{.isBlocked = false, .isTrouble = true};

/// The pixels of which at least half is covered.
int covered(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y).alpha() > 127 ? 1 : 0;
        }
    }
    return count;
}

/// The middle of the drop's right side below the dot and beside the bolt, in parts of the size.
QColor dropColor(Background background)
{
    const QImage drawn = image(64, background, {});
    return drawn.pixelColor(64 * 7 / 10, 64 * 7 / 10);
}

struct DotOfSize {
    int size;
    double diameter;
    double gap;
};

class BlockedLabel : public testing::TestWithParam<DotOfSize> {};

TEST_P(BlockedLabel, hasADotWithAClearedGap)
{
    const auto [size, diameter, gap] = GetParam();
    const QImage blocked = image(size, Background::unknown, blockedMark);
    const QImage plain = image(size, Background::unknown, {});
    const QPointF centre(size - diameter / 2, diameter / 2);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double distance = std::hypot(x + 0.5 - centre.x(), y + 0.5 - centre.y());
            const QColor pixel = blocked.pixelColor(x, y);
            if (distance < diameter / 2 - 1) {
                EXPECT_EQ(pixel, QColor(0xE5, 0x48, 0x4D)) << x << ' ' << y;
            } else if (distance > diameter / 2 + 0.8 && distance < diameter / 2 + gap - 0.8) {
                EXPECT_EQ(pixel.alpha(), 0) << x << ' ' << y;
            } else if (distance > diameter / 2 + gap + 0.8) {
                EXPECT_EQ(pixel, plain.pixelColor(x, y)) << x << ' ' << y;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    OfEverySize,
    BlockedLabel,
    testing::Values(
        DotOfSize{16, 6, 1},
        DotOfSize{22, 8, 1.5},
        DotOfSize{24, 8, 2},
        DotOfSize{32, 10, 2},
        DotOfSize{44, 16, 3},
        DotOfSize{48, 16, 4},
        DotOfSize{64, 20, 4}));

TEST(TarnwickMenuLabel, takesTheColorThatItsBackgroundNeeds)
{
    EXPECT_EQ(dropColor(Background::dark), QColor(0xF2, 0xF5, 0xF4));
    EXPECT_EQ(dropColor(Background::light), QColor(0x16, 0x21, 0x1E));
    const QColor unknown = dropColor(Background::unknown);
    EXPECT_GT(unknown.green(), unknown.red() + 60);
    EXPECT_GT(unknown.green(), unknown.blue());
}

TEST(TarnwickMenuLabel, dotsAreRedOnEachBackground)
{
    EXPECT_EQ(image(32, Background::dark, blockedMark).pixelColor(27, 5), QColor(0xFF, 0x6B, 0x6B));
    EXPECT_EQ(
        image(32, Background::light, blockedMark).pixelColor(27, 5), QColor(0xCF, 0x22, 0x2E));
}

TEST(TarnwickMenuLabel, hasADrawingOfItsOwnForSixteenPixels)
{
    const QImage scaled = image(48, Background::dark, {})
                              .scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage drawn = image(16, Background::dark, {});
    EXPECT_GT(covered(drawn), 40);
    EXPECT_NE(drawn, scaled);
}

TEST(TarnwickMenuLabel, isHollowAroundAnExclamationMarkWhileThereIsTrouble)
{
    for (const Background background : {Background::unknown, Background::dark, Background::light}) {
        for (const int size : {16, 22, 24, 32, 48, 64}) {
            const QImage calm = image(size, background, {});
            const QImage trouble = image(size, background, troubleMark);
            EXPECT_GT(covered(trouble), size) << size;
            EXPECT_LT(covered(trouble), covered(calm)) << size;
            // The stroke of the mark, and the empty place left of it.
            EXPECT_GT(trouble.pixelColor(size / 2, size / 2).alpha(), 200) << size;
            EXPECT_LT(trouble.pixelColor(size * 3 / 8, size * 9 / 16).alpha(), 60) << size;
        }
    }
    const QImage small = image(16, Background::dark, troubleMark);
    EXPECT_EQ(small.pixelColor(7, 8), QColor(0xF2, 0xF5, 0xF4));
}

TEST(TarnwickMenuLabel, theDotIsTheSameWhileThereIsTrouble)
{
    const QImage both = image(32, Background::light, {.isBlocked = true, .isTrouble = true});
    EXPECT_EQ(both.pixelColor(27, 5), QColor(0xCF, 0x22, 0x2E));
    EXPECT_EQ(both.pixelColor(20, 5).alpha(), 0);
}

TEST(TarnwickMenuLabel, isDrawnInEverySizeThatTraysAskFor)
{
    const QIcon drawn = icon(Background::unknown, {});
    QList<int> widths;
    for (const QSize& size : drawn.availableSizes()) {
        widths.append(size.width());
    }
    EXPECT_THAT(widths, UnorderedElementsAre(16, 22, 24, 32, 44, 48, 64));
    for (const int size : {16, 22, 24, 32, 44, 48, 64}) {
        EXPECT_EQ(
            drawn.pixmap(QSize(size, size), 1.0)
                .toImage()
                .convertedTo(QImage::Format_ARGB32_Premultiplied),
            image(size, Background::unknown, {}));
    }
}

TEST(TarnwickMenuLabel, onlyTheBarOfGnomeIsKnownToBeDark)
{
    EXPECT_EQ(backgroundOf(QStringLiteral("GNOME")), Background::dark);
    EXPECT_EQ(backgroundOf(QStringLiteral("ubuntu:GNOME")), Background::unknown);
    EXPECT_EQ(backgroundOf(QStringLiteral("GNOME-Classic:GNOME")), Background::unknown);
    EXPECT_EQ(backgroundOf(QStringLiteral("XFCE")), Background::unknown);
    EXPECT_EQ(backgroundOf(QString()), Background::unknown);
}

}  // namespace
