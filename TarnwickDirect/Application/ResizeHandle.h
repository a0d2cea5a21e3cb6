#pragma once

#include <QWidget>

namespace TarnwickDirect {

/// An invisible handle at an edge or corner of a frameless window, for resizing. Main thread only.
class ResizeHandle final : public QWidget {
public:
    ResizeHandle(Qt::Edges edges, QWidget* window);

    /// One handle for each edge and corner.
    static QList<ResizeHandle*> makeAll(QWidget* window);

    /// The place of a handle in a window of this size.
    static QRect place(Qt::Edges edges, const QSize& window);

    /// Call after the window was resized.
    void moveToEdge() { setGeometry(place(_edges, window()->size())); }

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    Qt::Edges _edges;
};

}  // namespace TarnwickDirect
