#include "Tarnwick/Interface/Panel/PanelFooter.h"

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Controls/ToolTip.h"
#include "Tarnwick/Interface/Panel/PanelWording.h"
#include "Tarnwick/Interface/Style/Painting.h"

#include <QPainter>
#include <QStringList>
#include <QTimerEvent>

#include <cmath>

namespace Tarnwick {
namespace {

constexpr int panelHeight = 32;
constexpr int sideMargin = 16;
constexpr int leastGap = 12;
constexpr int countToChip = 8;

LineStyle lineOf()
{
    return appearance().line(TextStyle::footnote, TextWeight::regular);
}

}  // namespace

PanelFooter::PanelFooter(std::function<PullRequestKit::Date()> now, QWidget* parent)
    : QWidget(parent)
    , _now(std::move(now))
    , _chip(new PushButton({}, PushButton::Kind::chip, this))
{
    setObjectName(QStringLiteral("footer"));
    _chip->setObjectName(QStringLiteral("hiddenChip"));
    _chip->setFocusPolicy(Qt::TabFocus);
    _chip->hide();
    refreshText();
    connect(_chip, &QAbstractButton::clicked, this, &PanelFooter::hiddenToggled);
}

void PanelFooter::setCount(std::optional<std::size_t> pullRequests)
{
    _count = pullRequests;
    layOut();
    refreshText();
}

void PanelFooter::setHidden(const HiddenCounts& hidden, bool areShown)
{
    const QString help = PanelWording::hiddenHelp(hidden);
    _chip->setText(PanelWording::hiddenChip(hidden, areShown));
    _chip->setAccessibleName(PanelWording::hiddenChipName(hidden, areShown));
    _chip->setAccessibleDescription(help);
    _chip->setToolTip(toolTipMarkup(help));
    _chip->setVisible(hidden.total() > 0);
    layOut();
    update();
}

void PanelFooter::setRefreshed(std::optional<PullRequestKit::Date> refreshed)
{
    _refreshed = refreshed;
    refreshText();
}

QString PanelFooter::countText() const
{
    return _count ? PanelWording::count(*_count) : QString();
}

QString PanelFooter::updatedText() const
{
    return _refreshed ? PanelWording::updated(*_refreshed, _now()) : QString();
}

void PanelFooter::refreshText()
{
    const QString updated = updatedText();
    QStringList texts{countText(), updated};
    texts.removeAll(QString());
    setAccessibleName(texts.join(QStringLiteral(", ")));
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
    return {360, appearance().scaled(panelHeight)};
}

double PanelFooter::leftEnd() const
{
    const double countEnd = sideMargin + Painting::width(countText(), lineOf());
    return _chip->isHidden() ? countEnd
                             : std::ceil(countEnd) + countToChip + _chip->sizeHint().width();
}

bool PanelFooter::showsUpdated() const
{
    const double width = Painting::width(updatedText(), lineOf());
    return width > 0 && leftEnd() + leastGap + width <= this->width() - sideMargin;
}

void PanelFooter::layOut()
{
    const QSize size = _chip->sizeHint();
    const int left =
        static_cast<int>(std::ceil(sideMargin + Painting::width(countText(), lineOf())))
        + countToChip;
    _chip->setGeometry(QRect(QPoint(left, (height() - size.height()) / 2), size));
}

void PanelFooter::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    painter.fillRect(rect(), palette.surfaceChrome);
    Painting::hairline(painter, 0, 0, width(), palette.hairline);

    const LineStyle style = lineOf();
    const QRectF line(
        sideMargin, (height() - style.height) / 2.0, width() - 2 * sideMargin, style.height);
    Painting::text(painter, line, countText(), style, palette.textSecondary);
    if (showsUpdated()) {
        Painting::text(painter, line, updatedText(), style, palette.textSecondary, Qt::AlignRight);
    }
}

void PanelFooter::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == _timer.timerId()) {
        refreshText();
    }
}

}  // namespace Tarnwick
