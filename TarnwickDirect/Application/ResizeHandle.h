#pragma once

#include <QWidget>

namespace TarnwickDirect {

/// An edge or a corner of a window without a frame, by which the user changes its size. It shows
/// nothing but the pointer's form. Main thread only.
class ResizeHandle final : public QWidget {
public:
    ResizeHandle(Qt::Edges edges, QWidget* window);

    /// One grip for each edge and corner of the window.
    static QList<ResizeHandle*> makeAll(QWidget* window);

    /// Where the grip of these edges lies in a window of this size.
    static QRect place(Qt::Edges edges, const QSize& window);

    /// To be called when the window's size has changed.
    void moveToEdge();

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    Qt::Edges _edges;
};

}  // namespace TarnwickDirect
