#include "TarnwickDirect/Application/WindowShadow.h"

#include "TarnwickDirect/X11/X11.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRasterWindow>

#include <cmath>
#include <vector>

namespace TarnwickDirect {
namespace {

constexpr int offset = 18;
constexpr int blur = 48;
constexpr double lightStrength = 0.22;
constexpr double darkStrength = 0.5;

/// The blur is computed at a fourth of the size, without a visible difference.
constexpr int reduction = 4;

QPainterPath rounded(const QRectF& rectangle, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rectangle, radius, radius);
    return path;
}

using Row = std::vector<int>;

/// Replaces each value with the mean of `reach` values on either side.
void smooth(Row& values, int reach)
{
    const Row before = values;
    const int count = static_cast<int>(values.size());
    const auto at = [&](int place) {
        return place < 0 || place >= count ? 0 : before[static_cast<std::size_t>(place)];
    };
    int sum = 0;
    for (int place = -reach; place <= reach; ++place) {
        sum += at(place);
    }
    for (int place = 0; place < count; ++place) {
        values[static_cast<std::size_t>(place)] = sum / (2 * reach + 1);
        sum += at(place + reach + 1) - at(place - reach);
    }
}

/// Three box blurs approximate a Gaussian.
void blurRow(Row& values)
{
    constexpr int reach = blur / reduction / 3;
    for (int time = 0; time < 3; ++time) {
        smooth(values, reach);
    }
}

void blurImage(QImage& alpha)
{
    Row values(static_cast<std::size_t>(alpha.width()));
    for (int y = 0; y < alpha.height(); ++y) {
        uchar* const line = alpha.scanLine(y);
        values.assign(line, line + alpha.width());
        blurRow(values);
        for (int x = 0; x < alpha.width(); ++x) {
            line[x] = static_cast<uchar>(values[static_cast<std::size_t>(x)]);
        }
    }
    values.resize(static_cast<std::size_t>(alpha.height()));
    for (int x = 0; x < alpha.width(); ++x) {
        for (int y = 0; y < alpha.height(); ++y) {
            values[static_cast<std::size_t>(y)] = alpha.constScanLine(y)[x];
        }
        blurRow(values);
        for (int y = 0; y < alpha.height(); ++y) {
            alpha.scanLine(y)[x] = static_cast<uchar>(values[static_cast<std::size_t>(y)]);
        }
    }
}

/// The blurred coverage of a window, at a fourth of the size.
QImage blurred(const QSize& whole, const QRect& window, double radius)
{
    QImage coverage(
        QSize(whole.width() / reduction + 1, whole.height() / reduction + 1),
        QImage::Format_ARGB32_Premultiplied);
    coverage.fill(Qt::transparent);
    QPainter painter(&coverage);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1.0 / reduction, 1.0 / reduction);
    painter.fillPath(rounded(QRectF(window), radius), Qt::black);
    painter.end();
    QImage alpha = coverage.convertToFormat(QImage::Format_Alpha8);
    blurImage(alpha);
    return alpha.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

/// Not a widget, so that it has no focus and no accessible interface.
class WindowShadow::Surface final : public QRasterWindow {
public:
    Surface()
    {
        setTitle(QStringLiteral("Shadow"));
        setFlags(
            Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint
            | Qt::NoDropShadowWindowHint | Qt::WindowTransparentForInput
            | Qt::WindowDoesNotAcceptFocus);
        QSurfaceFormat translucent = format();
        translucent.setAlphaBufferSize(8);
        setFormat(translucent);
    }

    void follow(const QRect& window, double radius, bool isDark)
    {
        if (_size != window.size() || _isDark != isDark) {
            _size = window.size();
            _isDark = isDark;
            _picture = picture(_size, radius, isDark);
            update();
        }
        setGeometry(place(window));
        if (!isVisible()) {
            X11::declineShadow(winId());
            show();
        }
        raise();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(0, 0, _picture);
    }

private:
    QSize _size;
    bool _isDark = false;
    QImage _picture;
};

WindowShadow::WindowShadow(QWidget& window, double radius, const Tarnwick::Appearance& appearance)
    : QObject(&window)
    , _window(window)
    , _radius(radius)
    , _appearance(appearance)
{
    window.installEventFilter(this);
    connect(&appearance, &Tarnwick::Appearance::changed, this, &WindowShadow::follow);
    follow();
}

WindowShadow::~WindowShadow() = default;

QRect WindowShadow::place(const QRect& window)
{
    return window.adjusted(-blur, -blur, blur, blur).translated(0, offset);
}

QImage WindowShadow::picture(const QSize& window, double radius, bool isDark)
{
    const QRect whole(QPoint(), place(QRect(QPoint(), window)).size());
    const QRect covered(QPoint(blur, blur), window);
    QImage picture(whole.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setOpacity(isDark ? darkStrength : lightStrength);
    const QImage shadow = blurred(whole.size(), covered, radius);
    painter.drawImage(QRectF(QPointF(), QSizeF(shadow.size()) * reduction), shadow);
    painter.setOpacity(1);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillPath(rounded(QRectF(covered).translated(0, -offset), radius), Qt::black);
    return picture;
}

bool WindowShadow::isShown() const
{
    return _surface && _surface->isVisible();
}

/// Only for a window in front: the shadow stays on top and would cover other windows.
bool WindowShadow::isWanted() const
{
    const bool isInFront = _window.windowType() == Qt::Popup || _window.isActiveWindow();
    return X11::isInUse() && _appearance.blendsWindows() && isInFront && _window.isVisible()
           && !_window.isMinimized() && _window.windowFlags().testFlag(Qt::FramelessWindowHint);
}

void WindowShadow::follow()
{
    if (isWanted()) {
        if (!_surface) {
            _surface = std::make_unique<Surface>();
        }
        _surface->follow(_window.geometry(), _radius, _appearance.isDark());
    } else if (_surface) {
        _surface->hide();
    }
}

bool WindowShadow::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
        X11::declineShadow(_window.winId());
        [[fallthrough]];
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::WindowStateChange:
        // Deferred until the window has handled the event.
        QMetaObject::invokeMethod(this, &WindowShadow::follow, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace TarnwickDirect
