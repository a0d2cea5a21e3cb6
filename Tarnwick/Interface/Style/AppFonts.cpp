#include "Tarnwick/Interface/Style/AppFonts.h"

#include "Tarnwick/Interface/Style/AppResources.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QResource>

#include <cmath>

namespace Tarnwick::AppFonts {

void registerBundledFonts()
{
    static bool isRegistered = false;
    if (isRegistered) {
        return;
    }
    isRegistered = true;
    AppResources::bundle();
    for (const QString& file :
         AppResources::files(QStringLiteral("Fonts"), QStringLiteral("ttf"))) {
        // No copy: Qt and FreeType read the font from the mapped bundle.
        QFontDatabase::addApplicationFontFromData(QResource(file).uncompressedData());
    }
}

double desktopPointSize()
{
    constexpr double usual = 10;
    const QFont desktop = QGuiApplication::font();
    // Qt's default when no desktop names a font (6.4: "Sans Serif" at 9, or none at all).
    const bool isUnnamed =
        desktop.family() == QLatin1String("Sans Serif") && desktop.pointSizeF() == 9;
    return isUnnamed || desktop.pointSizeF() <= 0 ? usual : desktop.pointSizeF();
}

double preferredPointSize(TextStyle style)
{
    return desktopPointSize() * sizeFactor(style);
}

QFont font(double pointSize, TextWeight weight)
{
    QFont font;
    font.setFamilies({QStringLiteral("Geist"), QGuiApplication::font().family()});
    font.setPointSizeF(pointSize);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

}  // namespace Tarnwick::AppFonts
