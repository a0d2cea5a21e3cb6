#include "Tarnwick/Interface/Panel/Strip.h"

#include "Tarnwick/Interface/Controls/Fade.h"
#include "Tarnwick/Interface/Controls/HelpText.h"
#include "Tarnwick/Interface/Controls/IconButton.h"
#include "Tarnwick/Interface/Controls/TextButton.h"
#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Look/SystemSymbol.h"
#include "Tarnwick/Interface/Panel/PanelWording.h"
#include "Tarnwick/Interface/Panel/WrappedText.h"

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

LineStyle textStyle(const Appearance& appearance)
{
    return appearance.line(TextStyle::footnote, TextWeight::regular);
}

}  // namespace

Strip::Strip(Tone tone, const QString& name, const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _tone(tone)
    , _appearance(appearance)
    , _dismiss(new IconButton(
          QStringLiteral("tarnwick-close"),
          QStringLiteral("Dismiss"),
          {.icon = 12, .box = 20, .radius = 6},
          appearance,
          this))
{
    setObjectName(name);
    _dismiss->setObjectName(name + QStringLiteral("Dismiss"));
    _dismiss->setToolTip(QStringLiteral("Dismiss"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(_dismiss, &QAbstractButton::clicked, this, [this] {
        releaseFocus();
        Q_EMIT dismissed();
    });
    _slide.setDuration(Fade::slideMilliseconds);
    _slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&_slide, &QVariantAnimation::valueChanged, this, [this](const QVariant& share) {
        _share = share.toDouble();
        updateGeometry();
    });
    connect(&_slide, &QVariantAnimation::finished, this, [this] { setVisible(!_text.isEmpty()); });
    connect(&appearance, &Appearance::changed, this, [this] {
        updateGeometry();
        layOut();
        update();
    });
    hide();
}

void Strip::setText(const QString& text)
{
    if (text == _text) {
        return;
    }
    _text = text;
    if (text.isEmpty()) {
        releaseFocus();
        slideTo(0);
        return;
    }
    _paragraph = PanelWording::paragraph(text);
    setAccessibleName(_paragraph);
    show();
    slideTo(1);
    updateGeometry();
    layOut();
    update();
}

void Strip::slideTo(double share)
{
    _slide.stop();
    const bool isInSight = parentWidget() != nullptr && parentWidget()->isVisible();
    if (_appearance.reducedMotion() || !isInSight) {
        _share = share;
        setVisible(share > 0);
        updateGeometry();
        return;
    }
    _slide.setStartValue(_share);
    _slide.setEndValue(share);
    _slide.start();
}

/// A hidden button would pass the focus on to whatever is next, such as the brand.
void Strip::releaseFocus()
{
    if (isAncestorOf(window()->focusWidget())) {
        Q_EMIT focusReleased();
    }
}

void Strip::setAction(const QString& title)
{
    delete _action;
    _action = new TextButton(title, _appearance, this);
    _action->setObjectName(objectName() + QStringLiteral("Action"));
    connect(_action, &QAbstractButton::clicked, this, [this] {
        releaseFocus();
        Q_EMIT actionTriggered();
    });
    setTabOrder(_action, _dismiss);
    layOut();
}

int Strip::textStart() const
{
    return _tone == Tone::error ? sideMargin + _appearance.scaled(iconSize) + iconGap : sideMargin;
}

int Strip::textWidth(int width) const
{
    int end = width - sideMargin - _dismiss->visibleSize().width() - gap;
    if (_action != nullptr) {
        end -= _action->visibleSize().width() + gap;
    }
    return end - textStart();
}

WrappedText Strip::laidOut(int width) const
{
    return WrappedText(_paragraph, textStyle(_appearance), textWidth(width), mostLines);
}

QSize Strip::sizeHint() const
{
    return {360, heightForWidth(width() > 0 ? width() : 360)};
}

int Strip::heightForWidth(int width) const
{
    return static_cast<int>(std::lround(_share * fullHeight(width)));
}

int Strip::fullHeight(int width) const
{
    const WrappedText text = laidOut(width);
    return 2 * padding + std::max(text.height(), textStyle(_appearance).height);
}

void Strip::layOut()
{
    if (_paragraph.isEmpty()) {
        return;
    }
    const bool isWhole = _paragraph == _text && !laidOut(width()).isElided();
    setToolTip(isWhole ? QString() : _text);
    const int middle = padding + textStyle(_appearance).height / 2;
    const QSize cross = _dismiss->visibleSize();
    // The cross itself, which is smaller than its box, ends at the side margin.
    const int overhang = (cross.width() - _appearance.scaled(12)) / 2;
    int end = width() - sideMargin + overhang;
    _dismiss->place(QRect(QPoint(end - cross.width(), middle - cross.height() / 2), cross));
    if (_action != nullptr) {
        end -= cross.width() + gap - overhang;
        const QSize size = _action->visibleSize();
        _action->place(QRect(QPoint(end - size.width(), middle - size.height() / 2), size));
    }
}

bool Strip::event(QEvent* event)
{
    // What gh says is not to be taken for markup.
    if (event->type() == QEvent::ToolTip && !toolTip().isEmpty()) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), helpMarkup(toolTip()), this);
        return true;
    }
    return QWidget::event(event);
}

void Strip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = _appearance.palette();
    const bool isError = _tone == Tone::error;
    painter.fillRect(rect(), isError ? palette.strip : palette.surfaceChrome);
    Painting::hairline(painter, 0, 0, width(), isError ? palette.stripLine : palette.hairline);
    if (isError) {
        const int size = _appearance.scaled(iconSize);
        SystemSymbol{QStringLiteral("exclamationmark.triangle")}.draw(
            painter, QRectF(sideMargin, padding, size, size), palette.amber);
    }
    laidOut(width()).draw(
        painter,
        QPointF(textStart(), padding),
        textWidth(width()),
        isError ? palette.textPrimary : palette.textSecondary);
}

void Strip::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

}  // namespace Tarnwick
