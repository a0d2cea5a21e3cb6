#pragma once

#include "Tarnwick/Interface/Controls/Fade.h"

#include <QAbstractScrollArea>

#include <optional>

namespace Tarnwick {

/// A vertical scroll bar that is nothing but its handle, in the gutter at the right of a scroll
/// area, where it takes no room. It grows under the pointer. The area's own bar keeps the values
/// and is not shown. Main thread only.
class OverlayScrollBar final : public QWidget {
    Q_OBJECT

public:
    /// Becomes a child of the area.
    explicit OverlayScrollBar(QAbstractScrollArea& area);

    /// Logical pixels at both ends of the area that the handle keeps clear of.
    void setInsets(int top, int bottom);

    /// In the bar's own coordinates, whose left edge is 12 pixels from the area's right one.
    QRect handle() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
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
    std::optional<int> _grip;  ///< While dragged: how far below the handle's top it is held.
};

}  // namespace Tarnwick
