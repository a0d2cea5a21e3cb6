#include "Tarnwick/Interface/Panel/PanelHeader.h"

#include "Tarnwick/Interface/Controls/IconButton.h"
#include "Tarnwick/Interface/Controls/Spinner.h"
#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Panel/BrandButton.h"

#include <QPainter>

namespace Tarnwick {
namespace {

constexpr int panelHeight = 44;
constexpr int brandStart = 12;
/// The options button's symbol, not its box, ends at the side margin.
constexpr int optionsEnd = 10;
constexpr int gap = 8;

}  // namespace

PanelHeader::PanelHeader(const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _appearance(appearance)
    , _brand(new BrandButton(appearance, this))
    , _spinner(new Spinner(16, appearance, this))
    , _options(new IconButton(
          QStringLiteral("tarnwick-options"),
          QStringLiteral("List options"),
          {.icon = 20, .box = 32, .radius = 8},
          appearance,
          this))
{
    setObjectName(QStringLiteral("header"));
    _brand->setObjectName(QStringLiteral("brand"));
    _options->setObjectName(QStringLiteral("options"));
    _spinner->setObjectName(QStringLiteral("refreshing"));
    _spinner->setAccessibleName(QStringLiteral("Refreshing"));
    _spinner->hide();
    connect(&appearance, &Appearance::changed, this, [this] {
        updateGeometry();
        layOut();
        update();
    });
}

void PanelHeader::setRefreshing(bool isRefreshing)
{
    _spinner->setVisible(isRefreshing);
}

QSize PanelHeader::sizeHint() const
{
    return {360, _appearance.scaled(panelHeight)};
}

void PanelHeader::layOut()
{
    const auto centred = [this](int x, const QSize& size) {
        return QRect(QPoint(x, (height() - size.height()) / 2), size);
    };
    _brand->place(centred(brandStart, _brand->visibleSize()));
    const QSize box = _options->visibleSize();
    const int optionsStart = width() - optionsEnd - box.width();
    _options->place(centred(optionsStart, box));
    const QSize ring = _spinner->sizeHint();
    _spinner->setGeometry(centred(optionsStart - gap - ring.width(), ring));
}

void PanelHeader::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), _appearance.palette().surfaceChrome);
    const double pixel = 1 / painter.deviceTransform().m22();
    Painting::hairline(painter, 0, height() - pixel, width(), _appearance.palette().hairline);
}

void PanelHeader::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

}  // namespace Tarnwick
