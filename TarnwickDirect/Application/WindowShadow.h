#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QImage>
#include <QWidget>

#include <memory>

class QRasterWindow;

namespace TarnwickDirect {

/// The shadow around a window with round corners, where the window system blends windows and draws
/// no shadow of its own. It is a window beside it that lets the pointer through, so that neither
/// the size nor the place of the other one changes. Window managers are asked to draw none.
/// Main thread only.
class WindowShadow final : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`, which is a top-level one. Requires: `appearance` lives longer.
    WindowShadow(QWidget& window, double radius, const Tarnwick::Appearance& appearance);
    ~WindowShadow() override;

    /// Where the shadow of a window at this place is seen.
    static QRect place(const QRect& window);

    /// The shadow of a window of this size, as large as `place` says, with a hole where the window
    /// is; black with the alpha that the shadow has in this appearance.
    static QImage picture(const QSize& window, double radius, bool isDark);

    /// Whether it is in sight.
    bool isShown() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Surface;

    void follow();
    bool isWanted() const;

    QWidget& _window;
    double _radius;
    const Tarnwick::Appearance& _appearance;
    std::unique_ptr<Surface> _surface;  ///< From when it was first in sight.
};

}  // namespace TarnwickDirect
