#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QImage>
#include <QWidget>

#include <memory>

class QRasterWindow;

namespace TarnwickDirect {

/// Draws a shadow around a rounded window if the window system blends windows but draws no shadow.
/// It is a separate window that ignores the pointer, so the window's size and place stay the same.
/// Asks window managers not to draw their own. Main thread only.
class WindowShadow final : public QObject {
    Q_OBJECT

public:
    /// Becomes a child of `window`, a top-level one. Requires: `appearance` outlives it.
    WindowShadow(QWidget& window, double radius, const Tarnwick::Appearance& appearance);
    ~WindowShadow() override;

    /// The place of the shadow of a window at this place.
    static QRect place(const QRect& window);

    /// The shadow of a window of this size, in the size of `place`, with a hole for the window.
    static QImage picture(const QSize& window, double radius, bool isDark);

    bool isShown() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Surface;

    void follow();
    bool isWanted() const;

    QWidget& _window;
    double _radius;
    const Tarnwick::Appearance& _appearance;
    std::unique_ptr<Surface> _surface;  ///< Created when first shown.
};

}  // namespace TarnwickDirect
