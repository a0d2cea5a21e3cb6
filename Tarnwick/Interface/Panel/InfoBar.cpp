#include "Tarnwick/Interface/Panel/InfoBar.h"

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Controls/ToolTip.h"
#include "Tarnwick/Interface/Panel/PanelWording.h"
#include "Tarnwick/Interface/Panel/WrappedText.h"
#include "Tarnwick/Interface/Style/Painting.h"
#include "Tarnwick/Interface/Style/SystemSymbol.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace Tarnwick {
namespace {

constexpr int padding = 8;
constexpr int sideMargin = 16;
constexpr int iconSize = 16;
constexpr int iconGap = 7;
constexpr int gap = 12;
constexpr int mostLines = 3;

LineStyle textStyle()
{
    return appearance().line(TextStyle::footnote, TextWeight::regular);
}

}  // namespace

InfoBar::InfoBar(Tone tone, const QString& name, QWidget* parent)
    : QWidget(parent)
    , _tone(tone)
    , _slide(*this, Fade::slideMilliseconds, [this] { followSlide(); })
    , _dismiss(new PushButton(
          QStringLiteral("Dismiss"), PushButton::Kind::quiet, this, PushButton::Size::small))
{
    setObjectName(name);
    _dismiss->setObjectName(name + QStringLiteral("Dismiss"));
    _dismiss->setSymbol(QStringLiteral("tarnwick-close"));
    _dismiss->setToolTip(_dismiss->text());
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(_dismiss, &QAbstractButton::clicked, this, [this] {
        setText({});
        Q_EMIT dismissed();
    });
    hide();
}

void InfoBar::setText(const QString& text)
{
    if (text == _text) {
        return;
    }
    _text = text;
    if (text.isEmpty()) {
        releaseFocus();
    } else {
        _paragraph = PanelWording::paragraph(text);
        setAccessibleName(_paragraph);
        show();
        layOut();
        update();
    }
    _slide.setOn(!text.isEmpty());
    updateGeometry();
}

void InfoBar::followSlide()
{
    setVisible(_slide.isOn() || _slide.value() > 0);
    updateGeometry();
}

/// A hidden button would pass the focus on to the next widget, such as the brand.
void InfoBar::releaseFocus()
{
    if (isAncestorOf(window()->focusWidget())) {
        Q_EMIT focusReleased();
    }
}

void InfoBar::setAction(const QString& title)
{
    delete _action;
    _action = new PushButton(title, PushButton::Kind::link, this);
    _action->setObjectName(objectName() + QStringLiteral("Action"));
    connect(_action, &QAbstractButton::clicked, this, [this] {
        releaseFocus();
        Q_EMIT actionTriggered();
    });
    setTabOrder(_action, _dismiss);
    layOut();
}

int InfoBar::textStart() const
{
    return _tone == Tone::error ? sideMargin + appearance().scaled(iconSize) + iconGap : sideMargin;
}

int InfoBar::textWidth(int width) const
{
    int end = width - sideMargin - _dismiss->sizeHint().width() - gap;
    if (_action != nullptr) {
        end -= _action->sizeHint().width() + gap;
    }
    return end - textStart();
}

WrappedText InfoBar::laidOut(int width) const
{
    return WrappedText(_paragraph, textStyle(), textWidth(width), mostLines);
}

QSize InfoBar::sizeHint() const
{
    return {360, heightForWidth(width() > 0 ? width() : 360)};
}

int InfoBar::heightForWidth(int width) const
{
    return static_cast<int>(std::lround(_slide.value() * fullHeight(width)));
}

int InfoBar::fullHeight(int width) const
{
    const WrappedText text = laidOut(width);
    return 2 * padding + std::max(text.height(), textStyle().height);
}

void InfoBar::layOut()
{
    if (_paragraph.isEmpty()) {
        return;
    }
    const bool isWhole = _paragraph == _text && !laidOut(width()).isElided();
    setToolTip(isWhole ? QString() : _text);
    const int middle = padding + textStyle().height / 2;
    const QSize cross = _dismiss->sizeHint();
    // The cross, which is smaller than its box, is aligned with the side margin.
    const int overhang = (cross.width() - appearance().scaled(12)) / 2;
    int end = width() - sideMargin + overhang;
    _dismiss->setGeometry(QRect(QPoint(end - cross.width(), middle - cross.height() / 2), cross));
    if (_action != nullptr) {
        end -= cross.width() + gap - overhang;
        const QSize size = _action->sizeHint();
        _action->setGeometry(QRect(QPoint(end - size.width(), middle - size.height() / 2), size));
    }
}

bool InfoBar::event(QEvent* event)
{
    // Output of gh is not markup.
    if (event->type() == QEvent::ToolTip && !toolTip().isEmpty()) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipMarkup(toolTip()), this);
        return true;
    }
    return QWidget::event(event);
}

void InfoBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    const bool isError = _tone == Tone::error;
    painter.fillRect(rect(), isError ? palette.infoBar : palette.surfaceChrome);
    Painting::hairline(painter, 0, 0, width(), isError ? palette.infoBarLine : palette.hairline);
    if (isError) {
        const int size = appearance().scaled(iconSize);
        SystemSymbol{QStringLiteral("exclamationmark.triangle")}.draw(
            painter, QRectF(sideMargin, padding, size, size), palette.amber);
    }
    laidOut(width()).draw(
        painter,
        QPointF(textStart(), padding),
        textWidth(width()),
        isError ? palette.textPrimary : palette.textSecondary);
}

}  // namespace Tarnwick
