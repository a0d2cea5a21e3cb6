#include "Tarnwick/Interface/Picker/PickerPlaceholder.h"

#include "Tarnwick/Interface/Controls/TextLine.h"
#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Look/SystemSymbol.h"

namespace Tarnwick {
namespace {

constexpr int symbolSize = 40;
constexpr int symbolGap = 16;

}  // namespace

PickerPlaceholder::PickerPlaceholder(const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _appearance(appearance)
    , _title(new TextLine(
          QStringLiteral("No repositories"),
          {.style = TextStyle::title2, .weight = TextWeight::medium, .alignment = Qt::AlignHCenter},
          appearance,
          this))
    , _noMatches(new TextLine(
          QStringLiteral("No matches"),
          {.style = TextStyle::body,
           .colour = &Palette::textSecondary,
           .alignment = Qt::AlignHCenter},
          appearance,
          this))
{
    _title->setObjectName(QStringLiteral("noRepositories"));
    _noMatches->setObjectName(QStringLiteral("noMatches"));
    _noMatches->hide();
    connect(&appearance, &Appearance::changed, this, [this] {
        layOut();
        update();
    });
}

void PickerPlaceholder::showNoRepositories()
{
    showTitle(QStringLiteral("No repositories"));
}

void PickerPlaceholder::showNotLoaded()
{
    showTitle(QStringLiteral("Repositories are not loaded yet"));
}

void PickerPlaceholder::showTitle(const QString& title)
{
    _title->setText(title);
    _noMatches->hide();
    _title->show();
    update();
}

void PickerPlaceholder::showNoMatches()
{
    _title->hide();
    _noMatches->show();
    update();
}

void PickerPlaceholder::layOut()
{
    const int size = _appearance.scaled(symbolSize);
    const int titleHeight = _title->sizeHint().height();
    const int top = (height() - size - symbolGap - titleHeight) / 2;
    _symbol = QRect((width() - size) / 2, top, size, size);
    _title->setGeometry(0, top + size + symbolGap, width(), titleHeight);
    const int lineHeight = _noMatches->sizeHint().height();
    _noMatches->setGeometry(0, (height() - lineHeight) / 2, width(), lineHeight);
}

void PickerPlaceholder::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = _appearance.palette();
    painter.fillRect(rect(), palette.surfaceList);
    Painting::hairline(painter, 0, 0, width(), palette.hairline);
    if (!_title->isHidden()) {
        SystemSymbol{QStringLiteral("shippingbox")}.draw(
            painter, QRectF(_symbol), palette.textTertiary);
    }
}

void PickerPlaceholder::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

}  // namespace Tarnwick
