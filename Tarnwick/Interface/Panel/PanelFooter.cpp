#include "Tarnwick/Interface/Panel/PanelFooter.h"

#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Panel/PanelWording.h"

#include <QPainter>
#include <QTimerEvent>

namespace Tarnwick {
namespace {

constexpr int panelHeight = 32;
constexpr int sideMargin = 16;
constexpr int leastGap = 12;

}  // namespace

PanelFooter::PanelFooter(
    std::function<PullRequestKit::Date()> now, const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _now(std::move(now))
    , _appearance(appearance)
{
    setObjectName(QStringLiteral("footer"));
    refreshText();
    connect(&appearance, &Appearance::changed, this, [this] {
        updateGeometry();
        update();
    });
}

void PanelFooter::setCount(std::size_t pullRequests)
{
    _count = pullRequests;
    refreshText();
}

void PanelFooter::setRefreshed(std::optional<PullRequestKit::Date> refreshed)
{
    _refreshed = refreshed;
    refreshText();
}

QString PanelFooter::countText() const
{
    return PanelWording::count(_count);
}

QString PanelFooter::updatedText() const
{
    return _refreshed ? PanelWording::updated(*_refreshed, _now()) : QString();
}

void PanelFooter::refreshText()
{
    const QString updated = updatedText();
    setAccessibleName(
        updated.isEmpty() ? countText() : countText() + QStringLiteral(", ") + updated);
    update();
    _timer.stop();
    if (!_refreshed || !isVisible()) {
        return;
    }
    if (const auto pause = PanelWording::untilUpdatedChanges(*_refreshed, _now())) {
        const std::chrono::milliseconds untilThen = *pause;
        _timer.start(static_cast<int>(untilThen.count()), Qt::CoarseTimer, this);
    }
}

QSize PanelFooter::sizeHint() const
{
    return {360, _appearance.scaled(panelHeight)};
}

void PanelFooter::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = _appearance.palette();
    painter.fillRect(rect(), palette.surfaceChrome);
    Painting::hairline(painter, 0, 0, width(), palette.hairline);

    const LineStyle style = _appearance.line(TextStyle::footnote, TextWeight::regular);
    const QRectF line(
        sideMargin, (height() - style.height) / 2.0, width() - 2 * sideMargin, style.height);
    Painting::text(painter, line, countText(), style, palette.textSecondary);
    const QString updated = updatedText();
    const double needed =
        Painting::width(countText(), style) + leastGap + Painting::width(updated, style);
    if (needed <= line.width()) {
        Painting::text(painter, line, updated, style, palette.textSecondary, Qt::AlignRight);
    }
}

void PanelFooter::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == _timer.timerId()) {
        refreshText();
    }
}

void PanelFooter::showEvent(QShowEvent* /*event*/)
{
    refreshText();
}

void PanelFooter::hideEvent(QHideEvent* /*event*/)
{
    _timer.stop();
}

}  // namespace Tarnwick
