#include "TarnwickDirect/SoftwareUpdate/UpdateDialog.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace TarnwickDirect {
namespace {

/// Minimizable, for downloads, and of fixed size.
constexpr Qt::WindowFlags windowKind = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                                       | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;

/// In average characters, which scale with the text.
constexpr int columns = 64;

/// In lines; fewer if the buttons would not fit on the screen.
constexpr int mostNotes = 12;

QLabel* addLabel(const char* name, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

void setText(QLabel& label, const QString& text)
{
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

}  // namespace

UpdateDialog::UpdateDialog(std::function<void(QWidget&)> bringToFront)
    : QDialog(nullptr, windowKind)
    , _bringToFront(std::move(bringToFront))
    , _title(addLabel("updateTitle", this))
    , _message(addLabel("updateMessage", this))
    , _notes(addLabel("updateNotes", nullptr))
    , _notesFrame(new QScrollArea(this))
    , _progress(new QProgressBar(this))
    , _buttons(new QHBoxLayout)
{
    setObjectName(QStringLiteral("updateDialog"));
    setWindowTitle(QStringLiteral("Software Update"));
    QFont titleFont = font();
    titleFont.setBold(true);
    _title->setFont(titleFont);
    _notes->setAccessibleDescription(QStringLiteral("Release notes"));
    _notes->setMargin(fontMetrics().averageCharWidth());
    _notesFrame->setWidget(_notes);
    _notesFrame->setWidgetResizable(true);
    _notesFrame->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    _progress->setObjectName(QStringLiteral("updateProgress"));
    _progress->setAccessibleName(QStringLiteral("Progress"));
    _progress->setTextVisible(false);
    auto* const layout = new QVBoxLayout(this);
    for (QWidget* const part :
         std::initializer_list<QWidget*>{_title, _message, _notesFrame, _progress}) {
        layout->addWidget(part);
    }
    layout->addLayout(_buttons);
}

void UpdateDialog::setPage(const std::optional<UpdatePage>& page)
{
    const std::optional<UpdatePage> before = std::exchange(_page, page);
    if (!page) {
        hide();
        return;
    }
    const bool isAnother = !before || before->actions != page->actions;
    showPage(*page);
    if (isAnother) {
        makeButtons(page->actions);
    }
    fit();
    if (isAnother) {
        comeInSight(page->wasAskedFor);
    }
}

void UpdateDialog::showPage(const UpdatePage& page)
{
    setAccessibleName(page.title);
    setAccessibleDescription(page.message);
    setText(*_title, page.title);
    setText(*_message, page.message);
    setText(*_notes, page.notes);
    _notesFrame->setVisible(!page.notes.isEmpty());
    _progress->setVisible(page.isBusy || page.progress);
    // Qt shows an empty range as indeterminate.
    _progress->setRange(0, page.isBusy ? 0 : 100);
    _progress->setValue(int(page.progress.value_or(0) * 100));
}

/// "Skip" is on the left, apart from the others.
void UpdateDialog::makeButtons(const std::vector<UpdateAction>& actions)
{
    while (QLayoutItem* const item = _buttons->takeAt(0)) {
        if (QWidget* const button = item->widget()) {
            // Deferred, because the button may be the caller.
            button->hide();
            button->deleteLater();
        }
        delete item;
    }
    const bool canSkip = actions.front() == UpdateAction::skip;
    for (const UpdateAction action : actions) {
        auto* const button = new QPushButton(textOf(action), this);
        button->setObjectName(QStringLiteral("updateButton"));
        connect(button, &QPushButton::clicked, this, [this, action] { Q_EMIT triggered(action); });
        _buttons->addWidget(button);
        button->setDefault(action == actions.back());
        button->show();
        button->setFocus(Qt::PopupFocusReason);
    }
    _buttons->insertStretch(canSkip ? 1 : 0);
}

/// Wrapped text needs a fixed width to determine the height.
void UpdateDialog::fit()
{
    const int width =
        std::max(fontMetrics().averageCharWidth() * columns, layout()->totalMinimumSize().width());
    const QMargins margins = layout()->contentsMargins();
    const int inner = width - margins.left() - margins.right() - 2 * _notesFrame->frameWidth();
    const int bar = _notesFrame->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int mostHeight = std::min(
        fontMetrics().lineSpacing() * mostNotes, screen()->availableGeometry().height() / 3);
    _notesFrame->setFixedHeight(
        std::min(_notes->heightForWidth(inner - bar), mostHeight) + 2 * _notesFrame->frameWidth());
    setFixedSize(width, layout()->totalHeightForWidth(width));
}

void UpdateDialog::comeInSight(bool wasAskedFor)
{
    if (isVisible()) {
        if (!isActiveWindow()) {
            QApplication::alert(this);
        }
        return;
    }
    setAttribute(Qt::WA_ShowWithoutActivating, !wasAskedFor);
    if (wasAskedFor) {
        _bringToFront(*this);
    } else {
        show();
    }
}

void UpdateDialog::reject()
{
    if (_page) {
        Q_EMIT triggered(_page->closing());
    }
}

}  // namespace TarnwickDirect
