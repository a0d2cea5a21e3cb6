#include "Tarnwick/Interface/List/FindBar.h"

#include "Tarnwick/Interface/Controls/Fade.h"
#include "Tarnwick/Interface/Controls/IconButton.h"
#include "Tarnwick/Interface/Controls/TextField.h"
#include "Tarnwick/Interface/Controls/TextLine.h"
#include "Tarnwick/Interface/Look/Painting.h"

#include <QKeyEvent>
#include <QPainter>

namespace Tarnwick {
namespace {

constexpr int barHeight = 40;
constexpr int fieldHeight = 28;
constexpr int sideMargin = 16;
constexpr int gap = 8;
constexpr IconButton::Extent closeExtent{.icon = 12, .box = 20, .radius = 6};

}  // namespace

FindBar::FindBar(const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _appearance(appearance)
    , _field(new TextField(QStringLiteral("tarnwick-find"), appearance, this))
    , _matches(new TextLine(
          QString(),
          {.style = TextStyle::footnote,
           .colour = &Palette::textTertiary,
           .alignment = Qt::AlignRight},
          appearance,
          this))
    , _closeButton(new IconButton(
          QStringLiteral("tarnwick-close"),
          QStringLiteral("Stop Finding"),
          closeExtent,
          appearance,
          this))
{
    const QString purpose = QStringLiteral("Find pull requests");
    setObjectName(QStringLiteral("findBar"));
    QLineEdit& edit = _field->edit();
    edit.setObjectName(QStringLiteral("findField"));
    edit.setAccessibleName(purpose);
    edit.setPlaceholderText(purpose);
    edit.installEventFilter(this);
    _matches->setObjectName(QStringLiteral("findMatches"));
    _matches->setAttribute(Qt::WA_TransparentForMouseEvents);
    _closeButton->setObjectName(QStringLiteral("findClose"));
    _closeButton->setToolTip(_closeButton->accessibleName());
    _slide.setDuration(Fade::slideMilliseconds);
    _slide.setEasingCurve(QEasingCurve::OutCubic);
    setFixedHeight(0);
    hide();

    connect(&edit, &QLineEdit::textChanged, this, &FindBar::findTextChanged);
    connect(_closeButton, &QAbstractButton::clicked, this, &FindBar::close);
    connect(&_slide, &QVariantAnimation::valueChanged, this, [this](const QVariant& height) {
        setFixedHeight(height.toInt());
    });
    connect(&_slide, &QVariantAnimation::finished, this, [this] { setVisible(_isOpen); });
    connect(&appearance, &Appearance::changed, this, &FindBar::adoptAppearance);
}

QString FindBar::text() const
{
    return _field->edit().text();
}

void FindBar::setText(const QString& text)
{
    _field->edit().setText(text);
}

QString FindBar::matchesText() const
{
    return _matches->text();
}

void FindBar::adoptAppearance()
{
    if (_isOpen) {
        _slide.stop();
        setFixedHeight(openHeight());
    }
    layOut();
    update();
}

int FindBar::openHeight() const
{
    return _appearance.scaled(barHeight);
}

void FindBar::open()
{
    if (!_isOpen) {
        _isOpen = true;
        show();
        slideTo(openHeight());
    }
    _field->edit().setFocus(Qt::ShortcutFocusReason);
    _field->edit().selectAll();
}

void FindBar::close()
{
    if (!_isOpen) {
        return;
    }
    _isOpen = false;
    _field->edit().clear();
    Q_EMIT closed();
    slideTo(0);
}

void FindBar::slideTo(int height)
{
    _slide.stop();
    const bool isInSight = parentWidget() != nullptr && parentWidget()->isVisible();
    if (_appearance.reducedMotion() || !isInSight) {
        setFixedHeight(height);
        setVisible(_isOpen);
        return;
    }
    _slide.setStartValue(this->height());
    _slide.setEndValue(height);
    _slide.start();
}

void FindBar::setMatches(int shown, int total)
{
    _matches->setText(
        text().trimmed().isEmpty() ? QString() : QStringLiteral("%1 of %2").arg(shown).arg(total));
    layOut();
}

QSize FindBar::sizeHint() const
{
    return {200, openHeight()};
}

void FindBar::layOut()
{
    const int height = _appearance.scaled(fieldHeight);
    // While the bar slides, what is in it comes and goes with its lower edge.
    const int top = this->height() - openHeight() + (openHeight() - height) / 2;
    const QRect field(sideMargin, top, width() - 2 * sideMargin, height);
    _field->setGeometry(field);
    const int box = _closeButton->visibleSize().width();
    const QRect closeBox(
        field.left() + field.width() - gap - box, top + (height - box) / 2, box, box);
    _closeButton->place(closeBox);
    const QSize matches = _matches->text().isEmpty() ? QSize(0, 0) : _matches->sizeHint();
    _matches->setGeometry(QRect(
        QPoint(closeBox.left() - gap - matches.width(), top + (height - matches.height()) / 2),
        matches));
    const int matchesRoom = matches.isEmpty() ? 0 : matches.width() + gap;
    _field->setTrailingRoom(box + gap + matchesRoom);
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
    return {&_field->edit(), _closeButton};
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
    const Palette& palette = _appearance.palette();
    painter.fillRect(rect(), palette.surfaceChrome);
    const double pixel = 1 / painter.deviceTransform().m22();
    Painting::hairline(painter, 0, height() - pixel, width(), palette.hairline);
}

void FindBar::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

}  // namespace Tarnwick
