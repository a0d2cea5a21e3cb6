#include "TarnwickDirect/Application/ResizeHandle.h"

#include <QMouseEvent>
#include <QWindow>

namespace TarnwickDirect {
namespace {

constexpr int thickness = 4;
constexpr int cornerSize = 14;

Qt::CursorShape cursorOf(Qt::Edges edges)
{
    if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge)) {
        return Qt::SizeFDiagCursor;
    }
    if (edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge)) {
        return Qt::SizeBDiagCursor;
    }
    return (edges & (Qt::LeftEdge | Qt::RightEdge)) != 0 ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

}  // namespace

ResizeHandle::ResizeHandle(Qt::Edges edges, QWidget* window)
    : QWidget(window)
    , _edges(edges)
{
    setFocusPolicy(Qt::NoFocus);
    setCursor(cursorOf(edges));
}

QList<ResizeHandle*> ResizeHandle::makeAll(QWidget* window)
{
    QList<ResizeHandle*> grips;
    // Corners come last, on top of the edges.
    for (const Qt::Edges edges :
         {Qt::Edges(Qt::TopEdge),
          Qt::Edges(Qt::BottomEdge),
          Qt::Edges(Qt::LeftEdge),
          Qt::Edges(Qt::RightEdge),
          Qt::TopEdge | Qt::LeftEdge,
          Qt::TopEdge | Qt::RightEdge,
          Qt::BottomEdge | Qt::LeftEdge,
          Qt::BottomEdge | Qt::RightEdge}) {
        grips.append(new ResizeHandle(edges, window));
    }
    return grips;
}

QRect ResizeHandle::place(Qt::Edges edges, const QSize& window)
{
    const bool isCorner = (edges & (Qt::TopEdge | Qt::BottomEdge)) != 0
                          && (edges & (Qt::LeftEdge | Qt::RightEdge)) != 0;
    const int reach = isCorner ? cornerSize : thickness;
    QRect place(QPoint(), window);
    if ((edges & Qt::TopEdge) != 0) {
        place.setHeight(reach);
    }
    if ((edges & Qt::BottomEdge) != 0) {
        place.setTop(window.height() - reach);
    }
    if ((edges & Qt::LeftEdge) != 0) {
        place.setWidth(reach);
    }
    if ((edges & Qt::RightEdge) != 0) {
        place.setLeft(window.width() - reach);
    }
    return place;
}

void ResizeHandle::mousePressEvent(QMouseEvent* event)
{
    QWindow* const handle = window()->windowHandle();
    if (event->button() == Qt::LeftButton && handle != nullptr) {
        handle->startSystemResize(_edges);
    }
}

}  // namespace TarnwickDirect
