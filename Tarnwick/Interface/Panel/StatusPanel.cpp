#include "Tarnwick/Interface/Panel/StatusPanel.h"

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Controls/Spinner.h"
#include "Tarnwick/Interface/Look/ResourceIcon.h"
#include "Tarnwick/Interface/Look/SystemSymbol.h"
#include "Tarnwick/Interface/Panel/MessageText.h"

#include <QPainter>

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr int iconSize = 40;
constexpr int iconGap = 16;
constexpr int spinnerGap = 16;
constexpr int buttonGap = 20;
constexpr int betweenButtons = 8;
constexpr int sidePadding = 40;
constexpr int widestTitle = 300;

}  // namespace

StatusPanel::StatusPanel(const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _appearance(appearance)
    , _title(new MessageText(
          {.style = TextStyle::title2,
           .weight = TextWeight::medium,
           .alignment = Qt::AlignHCenter,
           .mostLines = 6,
           .colour = &Palette::textPrimary},
          appearance,
          this))
    , _spinner(new Spinner(24, appearance, this))
    , _tryAgain(
          new PushButton(QStringLiteral("Try Again"), PushButton::Kind::plain, appearance, this))
    , _chooseRepositories(new PushButton(
          QStringLiteral("Choose Repositories…"), PushButton::Kind::primary, appearance, this))
{
    setObjectName(QStringLiteral("status"));
    _title->setObjectName(QStringLiteral("statusTitle"));
    _spinner->setObjectName(QStringLiteral("statusSpinner"));
    _tryAgain->setObjectName(QStringLiteral("tryAgain"));
    _chooseRepositories->setObjectName(QStringLiteral("chooseRepositories"));
    connect(_tryAgain, &QAbstractButton::clicked, this, &StatusPanel::tryAgainRequested);
    connect(
        _chooseRepositories, &QAbstractButton::clicked, this, &StatusPanel::repositoriesRequested);
    connect(&appearance, &Appearance::changed, this, [this] {
        layOut();
        update();
    });
}

void StatusPanel::show(const StatusContent& content)
{
    _content = content;
    _title->setText(content.title);
    _spinner->setVisible(content.hasSpinner);
    _tryAgain->setVisible(!content.hasSpinner);
    _chooseRepositories->setVisible(content.offersRepositories);
    // With nothing to press it holds the focus itself, until there are rows to pass it on to.
    PushButton* const button = content.offersRepositories ? _chooseRepositories : _tryAgain;
    setFocusProxy(content.hasSpinner ? nullptr : button);
    setAccessibleName(content.title);
    layOut();
    update();
}

int StatusPanel::layOutButtons(int top, bool isPlaced)
{
    QSize size = _tryAgain->visibleSize();
    if (_content.offersRepositories) {
        size.setWidth(std::max(size.width(), _chooseRepositories->visibleSize().width()));
    }
    const int start = (width() - size.width()) / 2;
    if (isPlaced) {
        _tryAgain->place(QRect(QPoint(start, top), size));
    }
    if (!_content.offersRepositories) {
        return size.height();
    }
    const int second = top + size.height() + betweenButtons;
    if (isPlaced) {
        _chooseRepositories->place(QRect(QPoint(start, second), size));
    }
    return 2 * size.height() + betweenButtons;
}

void StatusPanel::layOut()
{
    const int icon = _appearance.scaled(iconSize);
    _title->fit(std::min(width() - 2 * sidePadding, _appearance.scaled(widestTitle)), true);
    const QSize ring = _spinner->sizeHint();
    const int below =
        _content.hasSpinner ? spinnerGap + ring.height() : buttonGap + layOutButtons(0, false);
    int top = (height() - (icon + iconGap + _title->height() + below)) / 2;
    _icon = QRect((width() - icon) / 2, top, icon, icon);
    top += icon + iconGap;
    _title->move((width() - _title->width()) / 2, top);
    top += _title->height();
    if (_content.hasSpinner) {
        _spinner->setGeometry(QRect(QPoint((width() - ring.width()) / 2, top + spinnerGap), ring));
    } else {
        layOutButtons(top + buttonGap, true);
    }
}

void StatusPanel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = _appearance.palette();
    painter.fillRect(rect(), palette.surfaceList);
    if (!_content.image.isEmpty()) {
        ResourceIcon{_content.image}.draw(painter, QRectF(_icon), palette.textTertiary);
        return;
    }
    const QString symbol =
        _content.symbol.isEmpty() ? QStringLiteral("arrow.triangle.pull") : _content.symbol;
    SystemSymbol{symbol}.draw(painter, QRectF(_icon), palette.textTertiary);
}

void StatusPanel::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

}  // namespace Tarnwick
