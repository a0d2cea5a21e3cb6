#include "Tarnwick/Interface/Panel/Alert.h"

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Panel/MessageText.h"

#include <QKeyEvent>

namespace Tarnwick {
namespace {

constexpr int cardWidth = 316;
constexpr int titleGap = 6;
constexpr int buttonGap = 16;
constexpr int betweenButtons = 8;

}  // namespace

Alert::Alert(
    const QString& title, const Buttons& buttons, const Appearance& appearance, QWidget* parent)
    : CardOverlay(cardWidth, appearance, parent)
    , _title(new MessageText(
          {.style = TextStyle::headline,
           .weight = TextWeight::bold,
           .alignment = Qt::AlignLeft,
           .mostLines = 2,
           .colour = &Palette::textPrimary},
          appearance,
          this))
    , _message(new MessageText({}, appearance, this))
{
    setAccessibleName(title);
    _title->setText(title);
    _title->setObjectName(QStringLiteral("alertTitle"));
    _message->setObjectName(QStringLiteral("alertMessage"));
    if (!buttons.copyHelp.isEmpty()) {
        _copy = new PushButton(buttons.copyHelp, PushButton::Kind::plain, appearance, this);
        _copy->setSymbol(QStringLiteral("doc.on.doc"));
        _copy->setToolTip(buttons.copyHelp);
        _copy->setObjectName(QStringLiteral("alertCopy"));
        connect(_copy, &QAbstractButton::clicked, this, &Alert::copyTriggered);
    }
    if (!buttons.cancel.isEmpty()) {
        _cancel = new PushButton(buttons.cancel, PushButton::Kind::plain, appearance, this);
        _cancel->setObjectName(QStringLiteral("alertCancel"));
        connect(_cancel, &QAbstractButton::clicked, this, &Alert::cancelled);
    }
    if (!buttons.other.isEmpty()) {
        _other = new PushButton(buttons.other, PushButton::Kind::plain, appearance, this);
        _other->setObjectName(QStringLiteral("alertOther"));
        connect(_other, &QAbstractButton::clicked, this, &Alert::otherTriggered);
    }
    _primary = new PushButton(buttons.primary, PushButton::Kind::primary, appearance, this);
    _primary->setObjectName(QStringLiteral("alertPrimary"));
    connect(_primary, &QAbstractButton::clicked, this, &Alert::primaryTriggered);
}

QString Alert::title() const
{
    return _title->text();
}

QString Alert::message() const
{
    return _message->text();
}

void Alert::setMessage(const QString& message)
{
    _message->setText(message);
    setAccessibleDescription(message);
    if (isVisible()) {
        layOut();
    }
}

void Alert::setOffersOther(bool offersOther)
{
    if (_other != nullptr) {
        _other->setVisible(offersOther);
    }
}

int Alert::layOutContent(const QPoint& origin, int width)
{
    _title->fit(width, false);
    _title->move(origin);
    int y = _title->height() + titleGap;
    _message->fit(width, false);
    _message->move(origin + QPoint(0, y));
    y += _message->height() + buttonGap;
    int end = origin.x() + width;
    for (PushButton* const button : {_primary, _cancel, _other, _copy}) {
        if (button != nullptr && !button->isHidden()) {
            const QSize size = button->visibleSize();
            button->place(QRect(QPoint(end - size.width(), origin.y() + y), size));
            end -= size.width() + betweenButtons;
        }
    }
    return y + _primary->visibleSize().height();
}

void Alert::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        _primary->click();
        break;
    case Qt::Key_Escape:
        Q_EMIT cancelled();
        break;
    default:
        // Keys of the panel behind must not reach it.
        event->accept();
    }
}

void Alert::showEvent(QShowEvent* event)
{
    CardOverlay::showEvent(event);
    _primary->setFocus(Qt::PopupFocusReason);
}

}  // namespace Tarnwick
