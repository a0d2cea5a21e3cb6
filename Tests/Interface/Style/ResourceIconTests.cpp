#include "Tarnwick/Interface/Style/ResourceIcon.h"

#include "Support/Errors.h"
#include "Tarnwick/Interface/Style/AppResources.h"
#include "Tarnwick/Interface/Style/Drawing.h"
#include "Tarnwick/Interface/Style/SystemSymbol.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <stdexcept>

namespace Tarnwick {
namespace {

template<typename Icon>
QImage pictureOf(const Icon& icon)
{
    QImage picture(40, 40, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    icon.draw(painter, QRectF(0, 0, 40, 40), Qt::black);
    return picture;
}

QImage blank()
{
    QImage picture(40, 40, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    return picture;
}

TEST(ResourceIconTests, aMissingIconIsAQuestionMark)
{
    const QImage fallBack = pictureOf(SystemSymbol{QStringLiteral("questionmark.square.dashed")});
    EXPECT_NE(fallBack, blank());
    EXPECT_EQ(pictureOf(ResourceIcon{QStringLiteral("no-such-icon")}), fallBack);
    EXPECT_EQ(pictureOf(SystemSymbol{QStringLiteral("no.such.symbol")}), fallBack);
    EXPECT_NE(pictureOf(ResourceIcon{QStringLiteral("stack")}), fallBack);
}

TEST(ResourceIconTests, aFileThatIsNoDrawingIsNotDrawn)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("broken.svg")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<svg");
    file.close();
    QImage picture = blank();
    QPainter painter(&picture);
    const Drawing drawing{.path = file.fileName(), .tint = {}, .strokeWidth = {}};
    EXPECT_FALSE(draw(painter, QRectF(0, 0, 40, 40), drawing));
    EXPECT_EQ(picture, blank());
}

TEST(AppResourcesTests, aMissingBundleIsToldWithThePlacesLookedAt)
{
    const auto load = [] {
        AppResources{
            {QStringLiteral("/nowhere/first.bundle"), QStringLiteral("/nowhere/second.bundle")}};
    };
    EXPECT_EQ(
        TestSupport::messageOf<std::runtime_error>(load),
        "could not load resource bundle: from /nowhere/first.bundle or /nowhere/second.bundle");
}

TEST(AppResourcesTests, theBundleLiesInTheInstallationOrBesideTheProgram)
{
    EXPECT_EQ(
        AppResources::candidates(QStringLiteral("/usr/bin")),
        (QStringList{
            QStringLiteral("/usr/share/tarnwick/Tarnwick_Tarnwick.bundle"),
            QStringLiteral("/usr/bin/Tarnwick_Tarnwick.bundle")}));
}

}  // namespace
}  // namespace Tarnwick
