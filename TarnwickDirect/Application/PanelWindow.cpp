#include "TarnwickDirect/Application/PanelWindow.h"

#include "Tarnwick/Interface/Style/Painting.h"
#include "TarnwickDirect/Application/AccessiblePanel.h"
#include "TarnwickDirect/Application/PanelPlacement.h"
#include "TarnwickDirect/Application/WindowActivation.h"
#include "TarnwickDirect/X11/X11.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace TarnwickDirect {
namespace {

constexpr QSize smallestSize(360, 320);

QList<ScreenArea> currentScreens()
{
    QList<ScreenArea> areas;
    // The primary screen comes first.
    for (const QScreen* const screen : QGuiApplication::screens()) {
        areas.append({screen->geometry(), screen->availableGeometry()});
    }
    return areas;
}

}  // namespace

PanelWindow::PanelWindow(
    QWidget* content, std::function<bool()> keepsOpen, Tarnwick::Appearance& appearance)
    : _content(content)
    , _keepsOpen(std::move(keepsOpen))
    , _appearance(appearance)
{
    // Before the title: setting it makes Qt 6.8 create and cache the accessible interface.
    installAccessiblePanel();
    setObjectName(QStringLiteral("panelWindow"));
    setWindowTitle(QStringLiteral("Tarnwick"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    _corners = new RoundedCorners(this);
    _border = new Tarnwick::WindowBorderConfigurator(this);
    _grips = ResizeHandle::makeAll(this);
    connect(&appearance, &Tarnwick::Appearance::changed, this, &PanelWindow::appearanceChanged);
    connect(
        qGuiApp,
        &QGuiApplication::applicationStateChanged,
        this,
        &PanelWindow::applicationStateChanged);
    auto* const quit = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this);
    connect(quit, &QShortcut::activated, this, &PanelWindow::quitRequested);
    appearanceChanged();
    applyForm();
}

void PanelWindow::appearanceChanged()
{
    setMinimumSize(
        _appearance.scaled(smallestSize.width()), _appearance.scaled(smallestSize.height()));
    update();
}

void PanelWindow::setForm(Form form)
{
    _wantedForm = form;
    if (!isVisible() && _form != form) {
        applyForm();
    }
}

void PanelWindow::applyForm()
{
    _form = _wantedForm;
    const bool isPanel = _form == Form::panel;
    _isTranslucent = isPanel && (!X11::isInUse() || X11::hasOwner(X11::compositorSelection()));
    // Applied when the native window is next created.
    destroy();
    setAttribute(Qt::WA_TranslucentBackground, _isTranslucent);
    setAttribute(Qt::WA_NoSystemBackground, _isTranslucent);
    setWindowFlags(isPanel ? Qt::Tool | Qt::FramelessWindowHint : Qt::Window);
    _corners->setTranslucent(_isTranslucent);
    _corners->setVisible(isPanel);
    _border->setShown(isPanel);
    for (ResizeHandle* const grip : std::as_const(_grips)) {
        grip->setVisible(isPanel);
    }
    if (isPanel && !_isTranslucent) {
        setMask(RoundedCorners::shape(size()));
    } else {
        clearMask();
    }
}

void PanelWindow::place(std::optional<QPoint> click)
{
    if (click) {
        _lastClick = click;
    }
    if (_form == Form::panel) {
        const QRect geometry = panelPlace(_preferredSize, _lastClick, currentScreens());
        setGeometry(geometry);
        _givenSize = geometry.size();
        return;
    }
    _givenSize = _preferredSize.boundedTo(screen()->availableGeometry().size());
    resize(_givenSize);
}

void PanelWindow::present(std::optional<QPoint> click, const PlatformData& platformData)
{
    ++_presentation;
    _isWanted = true;
    _isFocusBorrowed = false;
    if (!isVisible()) {
        const bool isComposited = !X11::isInUse() || X11::hasOwner(X11::compositorSelection());
        _appearance.setBlendsWindows(isComposited);
        if (_form != _wantedForm || (_form == Form::panel && isComposited != _isTranslucent)) {
            applyForm();
        }
        place(click);
    }
    bringToFront(*this, platformData);
}

void PanelWindow::leave()
{
    if (_leaving == Leaving::minimize) {
        showMinimized();
    } else {
        close();
    }
}

void PanelWindow::dismiss()
{
    _isWanted = false;
    hide();
}

bool PanelWindow::isInFront() const
{
    return isVisible() && !isMinimized() && (_form == Form::panel || isActiveWindow());
}

bool PanelWindow::hasJustLostFocus(Clock::time_point now) const
{
    return _focusLost && now - *_focusLost < clickThatClosed;
}

bool PanelWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate && !_isFocusBorrowed) {
        focusLeft();
    }
    return QWidget::event(event);
}

bool PanelWindow::nativeEvent(const QByteArray& type, void* message, qintptr* result)
{
    // After 0.1 s Qt takes a keyboard grab for a lost focus, and then does not report when the
    // focus is really lost.
    switch (X11::focusChange(type, message)) {
    case X11::FocusChange::none:
        break;
    case X11::FocusChange::came:
        _isFocusBorrowed = false;
        break;
    case X11::FocusChange::borrowed:
        _isFocusBorrowed = true;
        break;
    case X11::FocusChange::left:
        if (std::exchange(_isFocusBorrowed, false)) {
            focusLeft();
        }
        break;
    }
    return QWidget::nativeEvent(type, message, result);
}

/// The focus may have moved to another window of the program before.
void PanelWindow::applicationStateChanged(Qt::ApplicationState state)
{
    if (state == Qt::ApplicationInactive && !isActiveWindow() && !X11::hasFocus()) {
        focusLeft();
    }
}

void PanelWindow::focusLeft()
{
    if (_form != Form::panel || !isVisible()) {
        return;
    }
    // The new focus is only known after the event. By then the panel may have been hidden and shown
    // again.
    const auto close = [this, presentation = _presentation] {
        if (presentation == _presentation) {
            closeUnlessKept();
        }
    };
    QMetaObject::invokeMethod(this, close, Qt::QueuedConnection);
}

void PanelWindow::closeUnlessKept()
{
    const bool isOurs =
        QApplication::activeWindow() != nullptr || QApplication::activePopupWidget() != nullptr;
    if (isVisible() && _form == Form::panel && !isOurs && !_keepsOpen()) {
        _focusLost = Clock::now();
        dismiss();
    }
}

void PanelWindow::rememberSize()
{
    const bool isOrdinary = (windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) == 0;
    if (isOrdinary && size() != _givenSize) {
        _givenSize = size();
        _preferredSize = size();
        Q_EMIT preferredSizeChanged();
    }
}

void PanelWindow::updateSight()
{
    const bool isInSight = isVisible() && !isMinimized();
    if (_isInSight != isInSight) {
        _isInSight = isInSight;
        _awaitsPainting = isInSight;
        if (isInSight) {
            update();
            Q_EMIT shown();
        } else {
            Q_EMIT hidden();
        }
    }
}

void PanelWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        updateSight();
    }
}

void PanelWindow::keyPressEvent(QKeyEvent* event)
{
    // Only if the content did not handle it.
    if (event->key() == Qt::Key_Escape && !_keepsOpen()) {
        leave();
        return;
    }
    QWidget::keyPressEvent(event);
}

void PanelWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    _corners->raise();
    _border->setShown(_form == Form::panel);
    for (ResizeHandle* const grip : std::as_const(_grips)) {
        grip->raise();
    }
    updateSight();
}

void PanelWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (event->spontaneous()) {
        return;
    }
    rememberSize();
    updateSight();
    if (_isWanted) {
        // Deferred, because the code that hid the window is still running.
        QMetaObject::invokeMethod(this, &PanelWindow::steppedAside, Qt::QueuedConnection);
    }
}

void PanelWindow::closeEvent(QCloseEvent* event)
{
    if (_keepsFromClosing && _keepsFromClosing()) {
        event->ignore();
        return;
    }
    _isWanted = false;
    // Accepting hides the window; others react to `closed`. Refusing would block the end of the
    // session.
    event->accept();
    QMetaObject::invokeMethod(this, &PanelWindow::closed, Qt::QueuedConnection);
}

void PanelWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    _corners->setGeometry(rect());
    for (ResizeHandle* const grip : std::as_const(_grips)) {
        grip->moveToEdge();
    }
    if (_form == Form::panel && !_isTranslucent) {
        setMask(RoundedCorners::shape(size()));
    }
}

void PanelWindow::paintEvent(QPaintEvent* /*event*/)
{
    if (std::exchange(_awaitsPainting, false)) {
        QMetaObject::invokeMethod(this, &PanelWindow::painted, Qt::QueuedConnection);
    }
    QPainter painter(this);
    Tarnwick::Painting::fillRounded(painter, QRectF(rect()), 0, _appearance.palette().surfaceList);
}

}  // namespace TarnwickDirect
