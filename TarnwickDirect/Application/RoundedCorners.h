#pragma once

#include <QRegion>
#include <QWidget>

namespace TarnwickDirect {

/// Rounds off the window that it lies over, above everything else there: what stands in the corners
/// is cleared away. Requires: the window is translucent. It lets the pointer through.
class RoundedCorners final : public QWidget {
public:
    static constexpr int radius = 16;

    explicit RoundedCorners(QWidget* window);

    /// The corners' squares in an area of this size, outside of which nothing is touched.
    static QRegion squares(const QSize& size);

    /// A shape of this size with round corners, for windows that cannot be translucent.
    static QRegion shape(const QSize& size);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace TarnwickDirect
