#include "Tarnwick/Interface/Panel/Alert.h"

#include "Tarnwick/Interface/Panel/MessageText.h"

#include <QKeyEvent>

namespace Tarnwick {
namespace {

constexpr int cardWidth = 316;
constexpr int titleGap = 6;
constexpr int buttonGap = 16;
constexpr int betweenButtons = 8;

}  // namespace

Alert::Alert(const QString& title, const Buttons& buttons, QWidget* parent)
    : CardOverlay(cardWidth, parent)
    , _title(new MessageText(MessageText::cardTitle(), this))
    , _message(new MessageText({}, this))
    , _row(new QHBoxLayout)
{
    setAccessibleName(title);
    _title->setText(title);
    _title->setObjectName(QStringLiteral("alertTitle"));
    _message->setObjectName(QStringLiteral("alertMessage"));
    content().addWidget(_title);
    content().addSpacing(titleGap);
    content().addWidget(_message);
    content().addSpacing(buttonGap);
    content().addLayout(_row);
    _row->setSpacing(betweenButtons);
    _row->addStretch();
    PushButton* const copy = addButton(buttons.copyHelp, "alertCopy", &Alert::copyTriggered);
    if (copy != nullptr) {
        copy->setSymbol(QStringLiteral("doc.on.doc"));
        copy->setToolTip(buttons.copyHelp);
    }
    _other = addButton(buttons.other, "alertOther", &Alert::otherTriggered);
    addButton(buttons.cancel, "alertCancel", &Alert::cancelled);
    _primary = addButton(
        buttons.primary, "alertPrimary", &Alert::primaryTriggered, PushButton::Kind::primary);
}

PushButton* Alert::addButton(
    const QString& text, const char* name, void (Alert::*triggered)(), PushButton::Kind kind)
{
    if (text.isEmpty()) {
        return nullptr;
    }
    auto* const button = new PushButton(text, kind, this);
    button->setObjectName(QLatin1String(name));
    connect(button, &QAbstractButton::clicked, this, triggered);
    _row->addWidget(button);
    return button;
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

void Alert::fit(int width)
{
    _title->fit(width, false);
    _message->fit(width, false);
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
        // Keys must not reach the panel behind.
        event->accept();
    }
}

void Alert::showEvent(QShowEvent* event)
{
    CardOverlay::showEvent(event);
    _primary->setFocus(Qt::PopupFocusReason);
}

}  // namespace Tarnwick
