#include "Tarnwick/Interface/Panel/AuthenticationPanel.h"

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Look/SystemSymbol.h"
#include "Tarnwick/Interface/Panel/HintText.h"
#include "Tarnwick/Interface/Panel/MessageText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr int iconSize = 40;
constexpr int iconGap = 16;
constexpr int textGap = 8;
constexpr int buttonGap = 20;
constexpr int betweenButtons = 8;
constexpr int sidePadding = 40;
constexpr int widestText = 320;
constexpr int leastMargin = 12;
/// Of the message, below the icon.
constexpr int leastLines = 2;
constexpr int copiedMilliseconds = 1200;

const QString command = QStringLiteral("gh auth login");

}  // namespace

AuthenticationPanel::AuthenticationPanel(const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _appearance(appearance)
    , _title(new MessageText(
          {.style = TextStyle::title2,
           .weight = TextWeight::medium,
           .alignment = Qt::AlignHCenter,
           .mostLines = 2,
           .colour = &Palette::textPrimary},
          appearance,
          this))
    , _message(new MessageText(
          {.style = TextStyle::body,
           .weight = TextWeight::regular,
           .alignment = Qt::AlignHCenter,
           .mostLines = 10,
           .colour = &Palette::textSecondary},
          appearance,
          this))
    , _hint(new HintText(
          QStringLiteral("Run `gh auth login` in Terminal, then try again."), appearance, this))
    , _copy(new PushButton(
          QStringLiteral("Copy gh auth login"), PushButton::Kind::primary, appearance, this))
    , _tryAgain(
          new PushButton(QStringLiteral("Try Again"), PushButton::Kind::plain, appearance, this))
{
    setObjectName(QStringLiteral("authentication"));
    _title->setObjectName(QStringLiteral("authenticationTitle"));
    _message->setObjectName(QStringLiteral("authenticationMessage"));
    _hint->setObjectName(QStringLiteral("authenticationHint"));
    _copy->setObjectName(QStringLiteral("copyLogin"));
    _tryAgain->setObjectName(QStringLiteral("authenticationTryAgain"));
    setFocusProxy(_copy);
    connect(_copy, &QAbstractButton::clicked, this, &AuthenticationPanel::copyCommand);
    connect(_tryAgain, &QAbstractButton::clicked, this, &AuthenticationPanel::tryAgainRequested);
    connect(&appearance, &Appearance::changed, this, [this] {
        layOut();
        update();
    });
}

void AuthenticationPanel::show(const AuthenticationContent& content)
{
    _content = content;
    _title->setText(content.title);
    _message->setText(content.message);
    layOut();
    update();
}

void AuthenticationPanel::copyCommand()
{
    QGuiApplication::clipboard()->setText(command);
    QToolTip::showText(
        _copy->mapToGlobal(QPoint(0, _copy->height())),
        QStringLiteral("Copied"),
        _copy,
        {},
        copiedMilliseconds);
}

/// What stands below the icon, but for the message, always fits; so in a low window the message
/// scrolls, and where not even a line of it would be left, the icon goes.
void AuthenticationPanel::layOut()
{
    const int room = std::min(width() - 2 * sidePadding, _appearance.scaled(widestText));
    _title->fit(room, true);
    _hint->fit(std::min(width() - 2 * sidePadding + 16, _appearance.scaled(widestText)));
    const int others = _title->height() + textGap + textGap + _hint->height() + buttonGap
                       + _copy->visibleSize().height();
    const int forMessage = height() - 2 * leastMargin - others;
    const int icon = _appearance.scaled(iconSize);
    const int line = _appearance.line(TextStyle::body, TextWeight::regular).height;
    const int iconRoom = forMessage - icon - iconGap >= leastLines * line ? icon + iconGap : 0;
    _message->fit(room, true, forMessage - iconRoom);
    int top = (height() - (iconRoom + others + _message->height())) / 2;
    _icon = iconRoom > 0 ? QRect((width() - icon) / 2, top, icon, icon) : QRect();
    top += iconRoom;
    const auto centre = [this, &top](QWidget* widget) {
        widget->move((width() - widget->width()) / 2, top);
        top += widget->height() + textGap;
    };
    centre(_title);
    centre(_message);
    centre(_hint);
    layOutButtons(top - textGap + buttonGap);
}

void AuthenticationPanel::layOutButtons(int top)
{
    const QSize copy = _copy->visibleSize();
    const QSize tryAgain = _tryAgain->visibleSize();
    const int start = (width() - copy.width() - betweenButtons - tryAgain.width()) / 2;
    _copy->place(QRect(QPoint(start, top), copy));
    _tryAgain->place(QRect(QPoint(start + copy.width() + betweenButtons, top), tryAgain));
}

void AuthenticationPanel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), _appearance.palette().surfaceList);
    if (_icon.isEmpty()) {
        return;
    }
    SystemSymbol{_content.symbol}.draw(painter, QRectF(_icon), _appearance.palette().textTertiary);
}

void AuthenticationPanel::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

}  // namespace Tarnwick
