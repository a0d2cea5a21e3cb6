#include "Tarnwick/Interface/List/FindBar.h"

#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Controls/TextField.h"
#include "Tarnwick/Interface/Controls/TextLine.h"
#include "Tarnwick/Interface/Style/Painting.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <cmath>

namespace Tarnwick {
namespace {

constexpr int barHeight = 40;
constexpr int fieldHeight = 28;
constexpr int sideMargin = 16;
constexpr int gap = 8;

}  // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent)
    , _content(new QWidget(this))
    , _field(new TextField(QStringLiteral("tarnwick-find"), fieldHeight, _content))
    , _matches(new TextLine(
          QString(),
          {.style = TextStyle::footnote,
           .color = &Palette::textTertiary,
           .alignment = Qt::AlignRight},
          _content))
    , _closeButton(new PushButton(
          QStringLiteral("Close Find Bar"),
          PushButton::Kind::quiet,
          _content,
          PushButton::Size::small))
    , _slide(*this, Fade::slideMilliseconds, [this] { place(); })
{
    const QString purpose = QStringLiteral("Find pull requests");
    setObjectName(QStringLiteral("findBar"));
    _field->setObjectName(QStringLiteral("findField"));
    _field->setAccessibleName(purpose);
    _field->setPlaceholderText(purpose);
    _field->installEventFilter(this);
    _matches->setObjectName(QStringLiteral("findMatches"));
    _matches->setAttribute(Qt::WA_TransparentForMouseEvents);
    _closeButton->setObjectName(QStringLiteral("findClose"));
    _closeButton->setSymbol(QStringLiteral("tarnwick-close"));
    _closeButton->setToolTip(_closeButton->text());
    auto* const bar = new QGridLayout(_content);
    bar->setContentsMargins(sideMargin, 0, sideMargin, 0);
    bar->addWidget(_field, 0, 0);
    auto* const inField = new QHBoxLayout;
    inField->setContentsMargins(0, 0, gap, 0);
    inField->setSpacing(gap);
    inField->addStretch();
    inField->addWidget(_matches);
    inField->addWidget(_closeButton);
    bar->addLayout(inField, 0, 0);
    place();

    connect(_field, &QLineEdit::textChanged, this, &FindBar::findTextChanged);
    connect(_closeButton, &QAbstractButton::clicked, this, &FindBar::close);
    connect(&appearance(), &Appearance::changed, this, &FindBar::place);
}

QString FindBar::text() const
{
    return _field->text();
}

void FindBar::setText(const QString& text)
{
    _field->setText(text);
}

int FindBar::openHeight() const
{
    return appearance().scaled(barHeight);
}

void FindBar::open()
{
    show();
    _slide.setOn(true);
    _field->setFocus(Qt::ShortcutFocusReason);
    _field->selectAll();
}

void FindBar::close()
{
    if (!isOpen()) {
        return;
    }
    _field->clear();
    _slide.setOn(false);
    Q_EMIT closed();
}

/// The content moves with the bar's lower edge while it slides.
void FindBar::place()
{
    setFixedHeight(static_cast<int>(std::lround(_slide.value() * openHeight())));
    setVisible(isOpen() || _slide.value() > 0);
    _content->setGeometry(0, height() - openHeight(), width(), openHeight());
    const int matchesWidth = _matches->sizeHint().width();
    _field->setTrailingRoom(
        _closeButton->sizeHint().width() + gap + (matchesWidth > 0 ? matchesWidth + gap : 0));
}

void FindBar::setMatches(int shown, int total)
{
    _matches->setText(
        text().trimmed().isEmpty() ? QString() : QStringLiteral("%1 of %2").arg(shown).arg(total));
    place();
}

QSize FindBar::sizeHint() const
{
    return {200, openHeight()};
}

bool FindBar::takesKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Escape:
        close();
        return true;
    case Qt::Key_Down:
    case Qt::Key_Tab:
        Q_EMIT leftForList();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (text().trimmed().isEmpty()) {
            Q_EMIT leftForList();
        } else {
            Q_EMIT hitRequested();
        }
        return true;
    default:
        return false;
    }
}

std::vector<QWidget*> FindBar::stops() const
{
    return {_field, _closeButton};
}

bool FindBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && takesKey(*static_cast<QKeyEvent*>(event))) {
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void FindBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    painter.fillRect(rect(), palette.surfaceChrome);
    const double pixel = 1 / painter.deviceTransform().m22();
    Painting::hairline(painter, 0, height() - pixel, width(), palette.hairline);
}

}  // namespace Tarnwick
