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
constexpr int detailGap = 8;
constexpr int spinnerGap = 16;
constexpr int buttonGap = 20;
constexpr int betweenButtons = 8;
constexpr int sidePadding = 40;
constexpr int widestTitle = 300;
constexpr int leastMargin = 12;

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
    , _detail(new MessageText(
          {.style = TextStyle::body,
           .weight = TextWeight::regular,
           .alignment = Qt::AlignHCenter,
           .mostLines = 3,
           .colour = &Palette::textSecondary},
          appearance,
          this))
    , _spinner(new Spinner(24, appearance, this))
    , _tryAgain(
          new PushButton(QStringLiteral("Try Again"), PushButton::Kind::plain, appearance, this))
    , _chooseRepositories(new PushButton(
          QStringLiteral("Choose Repositories…"), PushButton::Kind::primary, appearance, this))
    , _showHidden(new PushButton(
          QStringLiteral("Show Hidden"), PushButton::Kind::primary, appearance, this))
{
    setObjectName(QStringLiteral("status"));
    _title->setObjectName(QStringLiteral("statusTitle"));
    _detail->setObjectName(QStringLiteral("statusDetail"));
    _spinner->setObjectName(QStringLiteral("statusSpinner"));
    _tryAgain->setObjectName(QStringLiteral("tryAgain"));
    _chooseRepositories->setObjectName(QStringLiteral("chooseRepositories"));
    _showHidden->setObjectName(QStringLiteral("showHidden"));
    connect(_showHidden, &QAbstractButton::clicked, this, &StatusPanel::showHiddenRequested);
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
    _detail->setText(content.detail);
    _detail->setVisible(!content.detail.isEmpty());
    _spinner->setVisible(content.hasSpinner);
    _tryAgain->setVisible(!content.hasSpinner);
    _chooseRepositories->setVisible(primary() == _chooseRepositories);
    _showHidden->setVisible(primary() == _showHidden);
    // With nothing to press it holds the focus itself, until there are rows to pass it on to.
    PushButton* const button = primary() != nullptr ? primary() : _tryAgain;
    setFocusProxy(content.hasSpinner ? nullptr : button);
    setAccessibleName(content.title);
    setAccessibleDescription(content.detail);
    layOut();
    update();
}

PushButton* StatusPanel::primary() const
{
    if (_content.offersRepositories) {
        return _chooseRepositories;
    }
    return _content.detail.isEmpty() ? nullptr : _showHidden;
}

int StatusPanel::buttonsHeight() const
{
    const int height = _tryAgain->visibleSize().height();
    return primary() == _chooseRepositories ? 2 * height + betweenButtons : height;
}

void StatusPanel::layOutButtons(int top)
{
    const QSize tryAgain = _tryAgain->visibleSize();
    if (primary() == _showHidden) {
        const QSize first = _showHidden->visibleSize();
        const int start = (width() - first.width() - betweenButtons - tryAgain.width()) / 2;
        _showHidden->place(QRect(QPoint(start, top), first));
        _tryAgain->place(QRect(QPoint(start + first.width() + betweenButtons, top), tryAgain));
        return;
    }
    QSize size = tryAgain;
    if (primary() == _chooseRepositories) {
        size.setWidth(std::max(size.width(), _chooseRepositories->visibleSize().width()));
    }
    const int start = (width() - size.width()) / 2;
    _tryAgain->place(QRect(QPoint(start, top), size));
    _chooseRepositories->place(QRect(QPoint(start, top + size.height() + betweenButtons), size));
}

void StatusPanel::layOut()
{
    const int icon = _appearance.scaled(iconSize);
    const int room = std::min(width() - 2 * sidePadding, _appearance.scaled(widestTitle));
    _detail->fit(room, true);
    const int detail = _content.detail.isEmpty() ? 0 : detailGap + _detail->height();
    const QSize ring = _spinner->sizeHint();
    const int below =
        _content.hasSpinner ? spinnerGap + ring.height() : buttonGap + buttonsHeight();
    // In a low window the title scrolls, so that the buttons stay in sight.
    const int others = icon + iconGap + detail + below;
    _title->fit(room, true, height() - 2 * leastMargin - others);
    int top = (height() - (_title->height() + others)) / 2;
    _icon = QRect((width() - icon) / 2, top, icon, icon);
    top += icon + iconGap;
    _title->move((width() - _title->width()) / 2, top);
    _detail->move((width() - _detail->width()) / 2, top + _title->height() + detailGap);
    top += _title->height() + detail;
    if (_content.hasSpinner) {
        _spinner->setGeometry(QRect(QPoint((width() - ring.width()) / 2, top + spinnerGap), ring));
    } else {
        layOutButtons(top + buttonGap);
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
