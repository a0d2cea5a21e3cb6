#include "Support/Pictures.h"

#include <QFontDatabase>
#include <QPainter>

#include <cmath>
#include <cstdlib>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

/// Of 255, per color: what rounding in another version of Qt or FreeType may make of a pixel.
constexpr int pixelTolerance = 48;
/// The share of pixels that may differ by more.
constexpr double shareTolerance = 0.002;

bool differs(QRgb first, QRgb second)
{
    return std::abs(qRed(first) - qRed(second)) > pixelTolerance
           || std::abs(qGreen(first) - qGreen(second)) > pixelTolerance
           || std::abs(qBlue(first) - qBlue(second)) > pixelTolerance;
}

double differingShare(const QImage& first, const QImage& second)
{
    int count = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            count += differs(first.pixel(x, y), second.pixel(x, y)) ? 1 : 0;
        }
    }
    return static_cast<double>(count) / (first.width() * first.height());
}

}  // namespace

QImage pictureOf(QWidget& widget, double scaleFactor)
{
    const QSize pixels(
        static_cast<int>(std::lround(widget.width() * scaleFactor)),
        static_cast<int>(std::lround(widget.height() * scaleFactor)));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scaleFactor);
    image.fill(QColor(0xC9, 0xD2, 0xD0));
    widget.render(&image);
    return image;
}

void expectPicture(const QImage& picture, const std::string& name)
{
    if (!QFontDatabase::families().contains(QStringLiteral("Geist"))) {
        GTEST_SKIP() << "The pictures are set in Geist, which could not be bundled.";
    }
    const std::string path = std::string(TARNWICK_PICTURES) + "/" + name + ".png";
    if (std::getenv("TARNWICK_UPDATE_PICTURES") != nullptr) {
        ASSERT_TRUE(picture.save(QString::fromStdString(path))) << path;
        return;
    }
    const QImage stored(QString::fromStdString(path));
    ASSERT_FALSE(stored.isNull()) << path << " is missing";
    const std::string actual = testing::TempDir() + "tarnwick-" + name + ".png";
    const bool fits = stored.size() == picture.size();
    if (!fits || differingShare(stored, picture) > shareTolerance) {
        picture.save(QString::fromStdString(actual));
        FAIL() << name << " looks different now: compare " << path << " with " << actual
               << (fits ? "" : " (another size)");
    }
}

}  // namespace Tarnwick
