#include "Tarnwick/Interface/Panel/Notice.h"

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Controls/Spinner.h"
#include "Tarnwick/Interface/Panel/HintText.h"
#include "Tarnwick/Interface/Panel/MessageText.h"
#include "Tarnwick/Interface/Style/ResourceIcon.h"
#include "Tarnwick/Interface/Style/SystemSymbol.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>

namespace Tarnwick {
namespace {

constexpr int iconSize = 40;
constexpr int iconGap = 16;
constexpr int textGap = 8;
constexpr int spinnerGap = 16;
constexpr int buttonGap = 20;
constexpr int betweenButtons = 8;
constexpr int sidePadding = 40;
constexpr int widestTitle = 300;
constexpr int widestMessage = 320;
constexpr int leastMargin = 12;
/// Of the message.
constexpr int leastLines = 2;
constexpr int copiedMilliseconds = 1200;

}  // namespace

Notice::Notice(QWidget* parent)
    : QWidget(parent)
    , _icon(new QSpacerItem(0, 0))
    , _title(new MessageText(
          {.style = TextStyle::title2,
           .weight = TextWeight::medium,
           .alignment = Qt::AlignHCenter,
           .mostLines = 6,
           .color = &Palette::textPrimary},
          this))
    , _message(new MessageText({.alignment = Qt::AlignHCenter, .mostLines = 10}, this))
    , _hint(new HintText(this))
    , _spinner(new Spinner(24, this))
    , _row(new QBoxLayout(QBoxLayout::LeftToRight))
{
    setObjectName(QStringLiteral("notice"));
    _title->setObjectName(QStringLiteral("noticeTitle"));
    _message->setObjectName(QStringLiteral("noticeMessage"));
    _hint->setObjectName(QStringLiteral("noticeHint"));
    _spinner->setObjectName(QStringLiteral("noticeSpinner"));
    auto* const column = new QVBoxLayout(this);
    // The notice takes the size it is given.
    column->setSizeConstraint(QLayout::SetNoConstraint);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    column->setContentsMargins(0, leastMargin, 0, leastMargin);
    column->setSpacing(textGap);
    column->addStretch();
    column->addItem(_icon);
    for (QWidget* const text : std::initializer_list<QWidget*>{_title, _message, _hint}) {
        column->addWidget(text, 0, Qt::AlignHCenter);
    }
    _row->setSpacing(betweenButtons);
    _row->addWidget(_spinner);
    column->addLayout(_row);
    column->setAlignment(_row, Qt::AlignHCenter);
    column->addStretch();
    addButton(NoticeAction::copyLogin, "Copy gh auth login", "copyLogin");
    addButton(NoticeAction::chooseRepositories, "Choose Repositories…", "chooseRepositories");
    addButton(NoticeAction::showHidden, "Show Hidden", "showHidden");
    addButton(NoticeAction::tryAgain, "Try Again", "tryAgain");
    connect(&appearance(), &Appearance::changed, this, &Notice::fit);
}

void Notice::addButton(NoticeAction action, const char* text, const char* name)
{
    const bool isPrimary = action != NoticeAction::tryAgain;
    auto* const button = new PushButton(
        QString::fromUtf8(text),
        isPrimary ? PushButton::Kind::primary : PushButton::Kind::plain,
        this);
    button->setObjectName(QLatin1String(name));
    _row->addWidget(button);
    _buttons.emplace(action, button);
    connect(button, &QAbstractButton::clicked, this, [this, action, button] {
        if (action == NoticeAction::copyLogin) {
            QGuiApplication::clipboard()->setText(loginCommand);
            QToolTip::showText(
                button->mapToGlobal(QPoint(0, button->height())),
                QStringLiteral("Copied"),
                button,
                {},
                copiedMilliseconds);
        }
        Q_EMIT triggered(action);
    });
}

void Notice::show(const NoticeContent& content)
{
    _content = content;
    _title->setText(content.title);
    _message->setText(content.message);
    _hint->setText(content.hint);
    for (QLabel* const label : std::initializer_list<QLabel*>{_title, _message, _hint}) {
        label->setVisible(!label->text().isEmpty());
    }
    _spinner->setVisible(content.hasSpinner);
    for (const auto& [action, button] : _buttons) {
        button->setVisible(std::ranges::count(content.actions, action) > 0);
    }
    const int rowGap = content.hasSpinner ? spinnerGap : content.actions.empty() ? 0 : buttonGap;
    _row->setContentsMargins(0, std::max(0, rowGap - textGap), 0, 0);
    // The longest button has a row of its own below "Try Again".
    const bool isStacked = _buttons.at(NoticeAction::chooseRepositories)->isVisibleTo(this);
    _row->setDirection(isStacked ? QBoxLayout::BottomToTop : QBoxLayout::LeftToRight);
    // Without buttons the notice holds the focus itself.
    setFocusProxy(content.actions.empty() ? nullptr : _buttons.at(content.actions.front()));
    setAccessibleName(content.title);
    setAccessibleDescription(content.message);
    fit();
    update();
}

void Notice::setHasIcon(bool hasIcon)
{
    const int icon = hasIcon ? appearance().scaled(iconSize) : 0;
    _icon->changeSize(icon, icon + (hasIcon ? iconGap : 0));
    layout()->invalidate();
}

void Notice::fit()
{
    const int room = width() - 2 * sidePadding;
    const int titleRoom = std::min(room, appearance().scaled(widestTitle));
    const int messageRoom = std::min(room, appearance().scaled(widestMessage));
    const bool hasIcon = !_content.symbol.isEmpty() || !_content.image.isEmpty();
    setHasIcon(hasIcon);
    _title->fit(titleRoom, true);
    _message->fit(messageRoom, true);
    if (!_content.hint.isEmpty()) {
        _hint->fit(std::min(room + iconGap, appearance().scaled(widestMessage)));
    }
    const auto heightFor = [this](const QWidget* text) {
        return height() - (layout()->totalSizeHint().height() - text->height());
    };
    if (_content.message.isEmpty()) {
        _title->fit(titleRoom, true, heightFor(_title));
    } else {
        const int line = appearance().line(TextStyle::body, TextWeight::regular).height;
        setHasIcon(hasIcon && heightFor(_message) >= leastLines * line);
        _message->fit(messageRoom, true, heightFor(_message));
    }
    layout()->activate();
}

void Notice::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    const QRect place = _icon->geometry();
    if (place.isEmpty()) {
        return;
    }
    const int size = appearance().scaled(iconSize);
    const QRect icon((width() - size) / 2, place.top(), size, size);
    if (!_content.image.isEmpty()) {
        ResourceIcon{_content.image}.draw(painter, icon, palette.textTertiary);
    } else {
        SystemSymbol{_content.symbol}.draw(painter, icon, palette.textTertiary);
    }
}

}  // namespace Tarnwick
