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
constexpr int buttonGap = 4;

}  // namespace

PanelHeader::PanelHeader(const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _appearance(appearance)
    , _brand(new BrandButton(appearance, this))
    , _spinner(new Spinner(16, appearance, this))
    , _find(new IconButton(
          QStringLiteral("tarnwick-find"),
          QStringLiteral("Find"),
          {.icon = 20, .box = 32, .radius = 8},
          appearance,
          this))
    , _options(new IconButton(
          QStringLiteral("tarnwick-options"),
          QStringLiteral("List options"),
          {.icon = 20, .box = 32, .radius = 8},
          appearance,
          this))
{
    setObjectName(QStringLiteral("header"));
    _brand->setObjectName(QStringLiteral("brand"));
    _find->setObjectName(QStringLiteral("find"));
    _find->setToolTip(QStringLiteral("Find (/)"));
    _find->setToggle(true);
    _find->hide();
    _options->setObjectName(QStringLiteral("options"));
    for (QWidget* const button :
         {static_cast<QWidget*>(_brand),
          static_cast<QWidget*>(_find),
          static_cast<QWidget*>(_options)}) {
        button->setFocusPolicy(Qt::TabFocus);
    }
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

void PanelHeader::setFindShown(bool isShown)
{
    _find->setVisible(isShown);
    layOut();
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
    const int findStart = optionsStart - buttonGap - box.width();
    _find->place(centred(findStart, box));
    const int buttonsStart = _find->isHidden() ? optionsStart : findStart;
    const QSize ring = _spinner->sizeHint();
    _spinner->setGeometry(centred(buttonsStart - gap - ring.width(), ring));
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
