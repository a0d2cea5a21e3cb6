#include "Tarnwick/Interface/Style/WindowBorder.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QEvent>
#include <QPainter>

namespace Tarnwick {
namespace {

constexpr double cornerRadius = 16;

}  // namespace

WindowBorderOverlayView::WindowBorderOverlayView(bool isDark, QWidget* parent)
    : QWidget(parent)
    , _isDark(isDark)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void WindowBorderOverlayView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QRectF bounds(rect());
    Painting::strokeInside(painter, bounds, cornerRadius, 1, Qt::black);
    if (_isDark) {
        Painting::strokeInside(
            painter,
            bounds.adjusted(1, 1, -1, -1),
            cornerRadius - 1,
            1,
            Palette::dark().innerBorder);
    }
}

WindowBorderView::WindowBorderView(QWidget* parent)
    : QWidget(parent)
{
    setFixedSize(0, 0);
    install();
}

void WindowBorderView::setDark(bool isDark)
{
    if (_isDark != isDark) {
        _isDark = isDark;
        install();
    }
}

void WindowBorderView::setShown(bool isShown)
{
    if (_isShown != isShown) {
        _isShown = isShown;
        install();
    }
}

void WindowBorderView::install()
{
    delete _borderOverlay;
    if (_window != window()) {
        if (_window != nullptr) {
            _window->removeEventFilter(this);
        }
        _window = window();
        _window->installEventFilter(this);
    }
    if (!_isShown) {
        return;
    }
    _borderOverlay = new WindowBorderOverlayView(_isDark, _window);
    _borderOverlay->setGeometry(_window->rect());
    _borderOverlay->show();
    _borderOverlay->raise();
}

bool WindowBorderView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == _window) {
        switch (event->type()) {
        case QEvent::Resize:
            if (_borderOverlay != nullptr) {
                _borderOverlay->setGeometry(_window->rect());
            }
            break;
        case QEvent::ChildPolished:
            if (_borderOverlay != nullptr) {
                _borderOverlay->raise();
            }
            break;
        case QEvent::Show:
        case QEvent::ParentChange:
            if (_window != window() || (_isShown && _borderOverlay == nullptr)) {
                install();
            }
            break;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

WindowBorderConfigurator::WindowBorderConfigurator(QWidget* window)
    : QWidget(window)
    , _view(new WindowBorderView(this))
{
    setFixedSize(0, 0);
    const auto follow = [this] { _view->setDark(appearance().isDark()); };
    connect(&appearance(), &Appearance::changed, this, follow);
    follow();
}

}  // namespace Tarnwick
