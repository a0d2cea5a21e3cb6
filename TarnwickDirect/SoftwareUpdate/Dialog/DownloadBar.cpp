#include "TarnwickDirect/SoftwareUpdate/Dialog/DownloadBar.h"

#include "Tarnwick/Interface/Look/Appearance.h"
#include "Tarnwick/Interface/Look/Painting.h"

#include <QAccessible>
#include <QPainter>

#include <algorithm>

namespace TarnwickDirect {
namespace {

constexpr int thickness = 4;
constexpr double radius = 2;

}  // namespace

DownloadBar::DownloadBar(QWidget* parent)
    : QWidget(parent)
{
    setAccessibleName(QStringLiteral("Progress"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void DownloadBar::setShare(double share)
{
    _share = std::clamp(share, 0.0, 1.0);
    setAccessibleDescription(QStringLiteral("%1 %").arg(int(_share * 100)));
    QAccessibleValueChangeEvent changed(this, static_cast<int>(_share * 100));
    QAccessible::updateAccessibility(&changed);
    update();
}

QSize DownloadBar::sizeHint() const
{
    return {240, thickness};
}

void DownloadBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Tarnwick::Palette& palette = Tarnwick::appearance().palette();
    QRectF bar(rect());
    Tarnwick::Painting::fillRounded(painter, bar, radius, palette.strongLine);
    bar.setWidth(bar.width() * _share);
    Tarnwick::Painting::fillRounded(painter, bar, radius, palette.textLink);
}

}  // namespace TarnwickDirect
