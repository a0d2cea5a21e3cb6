#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialog.h"

#include "Tarnwick/Interface/Controls/ProgressBar.h"
#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Panel/MessageText.h"
#include "TarnwickDirect/SoftwareUpdate/Dialog/AccessibleDialog.h"
#include "TarnwickDirect/SoftwareUpdate/Dialog/DownloadBar.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace TarnwickDirect {
namespace {

using namespace Tarnwick;

/// It can be put aside while something is downloaded, and has one size.
constexpr Qt::WindowFlags windowKind = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                                       | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;

constexpr int dialogWidth = 440;
constexpr int padding = 20;
constexpr int titleGap = 6;
constexpr int gap = 16;
constexpr int notesPadding = 10;
constexpr double notesRadius = 8;
constexpr int betweenButtons = 8;

MessageText* addText(const MessageText::Setting& setting, const char* name, QWidget* parent)
{
    auto* const text = new MessageText(setting, parent);
    text->setObjectName(QString::fromLatin1(name));
    return text;
}

/// Shows the text in a place of this width and greatest height, and yields the height that it takes
/// with the space before it.
int placeText(MessageText& label, const QString& text, const QRect& place, int space)
{
    label.setText(text);
    label.setVisible(!text.isEmpty());
    if (text.isEmpty()) {
        return 0;
    }
    label.fit(place.width(), false, place.height());
    label.move(place.topLeft() + QPoint(0, space));
    return space + label.height();
}

/// Qt 6.8 asks for what assistive programs see of a widget while it is being made, and keeps it.
Qt::WindowFlags madeAccessible()
{
    installAccessibleDialog();
    return windowKind;
}

}  // namespace

UpdateDialog::UpdateDialog(std::function<void(QWidget&)> bringToFront)
    : QWidget(nullptr, madeAccessible())
    , _bringToFront(std::move(bringToFront))
    , _title(addText(MessageText::cardTitle(), "updateTitle", this))
    , _message(addText({}, "updateMessage", this))
    , _notes(addText({.mostLines = 12}, "updateNotes", this))
    , _progress(new DownloadBar(this))
    , _busy(new ProgressBar(this))
{
    setObjectName(QStringLiteral("updateDialog"));
    setWindowTitle(QStringLiteral("Software Update"));
    _progress->setObjectName(QStringLiteral("updateProgress"));
    _busy->setObjectName(QStringLiteral("updateBusy"));
    _notes->setAccessibleDescription(QStringLiteral("Release notes"));
}

void UpdateDialog::setPage(const std::optional<UpdatePage>& page)
{
    const bool hadPage = std::exchange(_hasPage, page.has_value());
    const UpdatePage before = std::exchange(_page, page.value_or(UpdatePage{}));
    if (!_hasPage) {
        hide();
        return;
    }
    const bool isAnother = !hadPage || before.actions != _page.actions;
    if (isAnother) {
        makeButtons();
    }
    layOut();
    setAccessibleName(_page.title);
    setAccessibleDescription(_page.message);
    if (isAnother) {
        comeInSight();
        if (!_buttons.empty()) {
            _buttons.back()->setFocus(Qt::PopupFocusReason);
        }
    }
}

void UpdateDialog::comeInSight()
{
    if (isVisible()) {
        if (!isActiveWindow()) {
            QApplication::alert(this);
        }
        return;
    }
    setAttribute(Qt::WA_ShowWithoutActivating, !_page.wasAskedFor);
    if (_page.wasAskedFor) {
        _bringToFront(*this);
    } else {
        show();
    }
}

void UpdateDialog::makeButtons()
{
    // One of them may be the one that is calling.
    for (PushButton* const button : std::exchange(_buttons, {})) {
        button->hide();
        button->deleteLater();
    }
    for (const UpdateAction action : _page.actions) {
        const bool isLast = _buttons.size() + 1 == _page.actions.size();
        const bool isPrimary = isLast && action != UpdateAction::cancel;
        auto* const button = new PushButton(
            textOf(action), isPrimary ? PushButton::Kind::primary : PushButton::Kind::plain, this);
        button->setObjectName(QStringLiteral("updateButton"));
        connect(
            button, &QAbstractButton::clicked, this, [this, action] { Q_EMIT triggered(action); });
        button->show();
        _buttons.push_back(button);
    }
}

/// As the design has it, or what the buttons need with a large font.
int UpdateDialog::innerWidth() const
{
    int buttons = -betweenButtons;
    for (const PushButton* const button : _buttons) {
        buttons += button->sizeHint().width() + betweenButtons;
    }
    return std::max(appearance().scaled(dialogWidth) - 2 * padding, buttons);
}

void UpdateDialog::layOut()
{
    if (!_hasPage) {
        return;
    }
    int y = padding;
    const int screenHeight = screen()->availableGeometry().height();
    y += placeText(*_title, _page.title, {padding, y, innerWidth(), screenHeight}, 0);
    y += placeText(*_message, _page.message, {padding, y, innerWidth(), screenHeight}, titleGap);
    y += placeNotes(y);
    y += placeBars(y);
    y += placeButtons(y);
    setFixedSize(innerWidth() + 2 * padding, y + padding);
    update();
}

int UpdateDialog::placeNotes(int y)
{
    // With large text on a low screen the buttons have to be seen, too.
    const int mostHeight = screen()->availableGeometry().height() / 2;
    const QRect place(padding + notesPadding, y + gap, innerWidth() - 2 * notesPadding, mostHeight);
    const int height = placeText(*_notes, _page.notes, place, notesPadding);
    if (height == 0) {
        _notesFrame = {};
        return 0;
    }
    _notesFrame = QRect(padding, y + gap, innerWidth(), height + notesPadding);
    return gap + _notesFrame.height();
}

int UpdateDialog::placeBars(int y)
{
    _progress->setVisible(_page.progress.has_value());
    _progress->setShare(_page.progress.value_or(0));
    _busy->setVisible(_page.isBusy);
    if (!_page.progress && !_page.isBusy) {
        return 0;
    }
    const QRect bar(padding, y + gap, innerWidth(), _progress->sizeHint().height());
    _progress->setGeometry(bar);
    _busy->setGeometry(bar);
    return gap + bar.height();
}

/// From the right, the last action first; skipping stands apart at the left.
int UpdateDialog::placeButtons(int y)
{
    int height = 0;
    int end = padding + innerWidth();
    for (std::size_t index = _buttons.size(); index-- > 0;) {
        PushButton& button = *_buttons[index];
        const QSize size = button.sizeHint();
        const bool standsApart = _page.actions[index] == UpdateAction::skip;
        const int x = standsApart ? padding : end - size.width();
        button.setGeometry(QRect(QPoint(x, y + gap), size));
        end -= size.width() + betweenButtons;
        height = gap + size.height();
    }
    return height;
}

void UpdateDialog::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        layOut();
    }
}

void UpdateDialog::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    painter.fillRect(rect(), palette.surfaceMenu);
    if (!_notesFrame.isEmpty()) {
        const QRectF frame(_notesFrame);
        Painting::fillRounded(painter, frame, notesRadius, palette.field);
        Painting::strokeInside(painter, frame, notesRadius, 1, palette.hairline);
    }
}

void UpdateDialog::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!_buttons.empty()) {
            _buttons.back()->click();
        }
        break;
    case Qt::Key_Escape:
        close();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

/// Refusing would stand in the way of the session's end.
void UpdateDialog::closeEvent(QCloseEvent* event)
{
    event->accept();
    close();
}

void UpdateDialog::close()
{
    if (const auto closing = _page.closing()) {
        Q_EMIT triggered(*closing);
    }
}

}  // namespace TarnwickDirect
