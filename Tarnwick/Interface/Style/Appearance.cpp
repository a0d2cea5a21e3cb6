#include "Tarnwick/Interface/Style/Appearance.h"

#include "Tarnwick/Interface/Style/AppFonts.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace Tarnwick {
namespace {

constexpr double pointsAtScale1 = 10;
constexpr double dotsPerInchAtScale1 = 96;
constexpr double pointsPerInch = 72;

double dotsPerInch()
{
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? dotsPerInchAtScale1 : screen->logicalDotsPerInchY();
}

double desktopTextScale()
{
    return AppFonts::desktopPointSize() / pointsAtScale1 * dotsPerInch() / dotsPerInchAtScale1;
}

}  // namespace

Appearance::Appearance(std::optional<double> textScale)
    : _textScale(textScale.value_or(desktopTextScale()))
{
    if (!textScale) {
        QCoreApplication::instance()->installEventFilter(this);
    }
}

void Appearance::setDark(bool dark)
{
    if (_isDark != dark) {
        _isDark = dark;
        Q_EMIT changed();
    }
}

void Appearance::setPreferences(Preferences preferences)
{
    if (_preferences != preferences) {
        _preferences = preferences;
        Q_EMIT changed();
    }
}

void Appearance::setTextScale(double textScale)
{
    if (_textScale != textScale) {
        _textScale = textScale;
        Q_EMIT changed();
    }
}

int Appearance::scaled(int length) const
{
    return 2 * static_cast<int>(std::lround(length * _textScale / 2));
}

LineStyle Appearance::line(TextStyle style, TextWeight weight) const
{
    const double points = pointsAtScale1 * _textScale * sizeFactor(style);
    const double pixelSize = points * dotsPerInchAtScale1 / pointsPerInch;
    const int height = lineHeightOf(pixelSize);
    return {
        .font = AppFonts::font(pixelSize * pointsPerInch / dotsPerInch(), weight),
        .height = height,
        .baseline = baselineOf(pixelSize, height),
        .pixelSize = pixelSize};
}

bool Appearance::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationFontChange && watched == QCoreApplication::instance()) {
        setTextScale(desktopTextScale());
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace Tarnwick
