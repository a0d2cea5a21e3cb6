#include "Tarnwick/Interface/Panel/EditorOverlay.h"

#include "Tarnwick/Interface/Controls/ProgressBar.h"
#include "Tarnwick/Interface/Controls/TextLine.h"
#include "Tarnwick/Interface/Panel/MessageText.h"

#include <QKeyEvent>

namespace Tarnwick {
namespace {

constexpr int cardWidth = 284;
constexpr int titleGap = 6;
constexpr int barGap = 16;

}  // namespace

EditorOverlay::EditorOverlay(QWidget* parent)
    : CardOverlay(cardWidth, parent)
    , _title(new MessageText(MessageText::cardTitle(), this))
    , _progress(new TextLine({}, {.color = &Palette::textSecondary}, this))
{
    setObjectName(QStringLiteral("editorOverlay"));
    _title->setText(QStringLiteral("Opening in Editor"));
    setAccessibleName(_title->text());
    content().addWidget(_title);
    content().addSpacing(titleGap);
    content().addWidget(_progress);
    content().addSpacing(barGap);
    content().addWidget(new ProgressBar(this));
}

void EditorOverlay::setProgress(const QString& progress)
{
    _progress->setText(progress);
    setAccessibleDescription(progress);
}

void EditorOverlay::fit(int width)
{
    _title->fit(width, false);
}

void EditorOverlay::keyPressEvent(QKeyEvent* event)
{
    // Nothing can be cancelled.
    event->accept();
}

void EditorOverlay::showEvent(QShowEvent* event)
{
    CardOverlay::showEvent(event);
    setFocus(Qt::PopupFocusReason);
}

}  // namespace Tarnwick
