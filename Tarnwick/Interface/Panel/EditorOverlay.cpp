#include "Tarnwick/Interface/Panel/EditorOverlay.h"

#include "Tarnwick/Interface/Controls/ProgressBar.h"
#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Panel/MessageText.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

namespace Tarnwick {
namespace {

constexpr int cardWidth = 284;
constexpr int titleGap = 6;
constexpr int barGap = 16;

}  // namespace

EditorOverlay::EditorOverlay(const Appearance& appearance, QWidget* parent)
    : CardOverlay(cardWidth, appearance, parent)
    , _title(new MessageText(
          {.style = TextStyle::headline,
           .weight = TextWeight::bold,
           .alignment = Qt::AlignLeft,
           .mostLines = 2,
           .colour = &Palette::textPrimary},
          appearance,
          this))
    , _bar(new ProgressBar(appearance, this))
{
    setObjectName(QStringLiteral("editorOverlay"));
    _title->setText(QStringLiteral("Opening in Editor"));
    setAccessibleName(_title->text());
}

QString EditorOverlay::progress() const
{
    return _progress;
}

void EditorOverlay::setProgress(const QString& progress)
{
    _progress = progress;
    setAccessibleDescription(progress);
    update(_progressLine);
}

int EditorOverlay::layOutContent(const QPoint& origin, int width)
{
    _title->fit(width, false);
    _title->move(origin);
    int y = _title->height() + titleGap;
    const int line = appearance().line(TextStyle::body, TextWeight::regular).height;
    _progressLine = QRect(origin + QPoint(0, y), QSize(width, line));
    y += line + barGap;
    _bar->setGeometry(QRect(origin + QPoint(0, y), QSize(width, _bar->sizeHint().height())));
    return y + _bar->height();
}

void EditorOverlay::paintEvent(QPaintEvent* event)
{
    CardOverlay::paintEvent(event);
    QPainter painter(this);
    const LineStyle style = appearance().line(TextStyle::body, TextWeight::regular);
    const QString text =
        QFontMetricsF(style.font).elidedText(_progress, Qt::ElideRight, _progressLine.width());
    Painting::text(
        painter, QRectF(_progressLine), text, style, appearance().palette().textSecondary);
}

void EditorOverlay::keyPressEvent(QKeyEvent* event)
{
    // Nothing can be done but wait.
    event->accept();
}

void EditorOverlay::showEvent(QShowEvent* event)
{
    CardOverlay::showEvent(event);
    setFocus(Qt::PopupFocusReason);
}

}  // namespace Tarnwick
