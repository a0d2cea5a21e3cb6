#pragma once

#include "Tarnwick/Interface/Controls/Fade.h"

#include <QAbstractScrollArea>

#include <optional>

namespace Tarnwick {

/// A vertical scroll bar that is only a handle over a scroll area's right edge. It grows under the
/// pointer. The area's own bar is hidden but keeps the values. Main thread only.
class OverlayScrollBar final : public QWidget {
    Q_OBJECT

public:
    /// Becomes a child of the area.
    explicit OverlayScrollBar(QAbstractScrollArea& area);

    /// The space above and below the handle, in logical pixels.
    void setInsets(int top, int bottom);

    /// In the bar's own coordinates, whose left edge is 12 pixels from the area's right one.
    QRect handle() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

    void enterEvent(QEnterEvent* /*event*/) override { _growth.setOn(true); }

    void leaveEvent(QEvent* /*event*/) override { _growth.setOn(false); }

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void follow();
    int trackLength() const;

    QAbstractScrollArea& _area;
    Fade _growth;
    int _topInset = 2;
    int _bottomInset = 2;
    std::optional<int> _grip;  ///< While dragged: the pointer's distance from the handle's top.
};

}  // namespace Tarnwick
