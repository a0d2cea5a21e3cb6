#include "Tarnwick/Interface/Panel/PanelHeader.h"

#include "Tarnwick/Interface/Controls/Spinner.h"
#include "Tarnwick/Interface/Panel/BrandButton.h"
#include "Tarnwick/Interface/Style/Painting.h"

#include <QHBoxLayout>
#include <QPainter>

namespace Tarnwick {
namespace {

constexpr int panelHeight = 44;
constexpr int brandStart = 12;
/// The options button's symbol, not its box, is aligned with the side margin.
constexpr int optionsEnd = 10;
constexpr int buttonGap = 4;
constexpr int spinnerGap = 8;

}  // namespace

PanelHeader::PanelHeader(QWidget* parent)
    : QWidget(parent)
    , _brand(new BrandButton(this))
    , _spinner(new Spinner(16, this))
    , _find(new PushButton(QStringLiteral("Find"), PushButton::Kind::quiet, this))
    , _options(new PushButton(QStringLiteral("List options"), PushButton::Kind::quiet, this))
{
    setObjectName(QStringLiteral("header"));
    _brand->setObjectName(QStringLiteral("brand"));
    _find->setObjectName(QStringLiteral("find"));
    _find->setSymbol(QStringLiteral("tarnwick-find"));
    _find->setToolTip(QStringLiteral("Find (/)"));
    _find->setToggle(true);
    _find->hide();
    _options->setObjectName(QStringLiteral("options"));
    _options->setSymbol(QStringLiteral("tarnwick-options"));
    _spinner->setObjectName(QStringLiteral("refreshing"));
    _spinner->setAccessibleName(QStringLiteral("Refreshing"));
    _spinner->hide();
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(brandStart, 0, optionsEnd, 0);
    row->setSpacing(buttonGap);
    row->addWidget(_brand);
    row->addStretch();
    row->addWidget(_spinner);
    row->addSpacing(spinnerGap - buttonGap);
    for (PushButton* const button : {_find, _options}) {
        row->addWidget(button);
    }
    for (PushButton* const button : {_brand, _find, _options}) {
        button->setFocusPolicy(Qt::TabFocus);
    }
}

void PanelHeader::setRefreshing(bool isRefreshing)
{
    _spinner->setVisible(isRefreshing);
}

QSize PanelHeader::sizeHint() const
{
    return {360, appearance().scaled(panelHeight)};
}

void PanelHeader::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), appearance().palette().surfaceChrome);
    const double pixel = 1 / painter.deviceTransform().m22();
    Painting::hairline(painter, 0, height() - pixel, width(), appearance().palette().hairline);
}

}  // namespace Tarnwick
