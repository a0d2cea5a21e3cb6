#pragma once

#include <QRegion>
#include <QWidget>

namespace TarnwickDirect {

/// Rounds off the window that it lies over, above everything else there but the border. It lets the
/// pointer through. Main thread only.
class RoundedCorners final : public QWidget {
public:
    static constexpr int radius = 16;

    explicit RoundedCorners(QWidget* window);

    /// What stands in the corners of a translucent window is cleared away. In those of an opaque
    /// one, which are cut off at whole pixels, it is covered with the border's black, or the steps
    /// of the cut would shine.
    void setTranslucent(bool isTranslucent);

    /// The corners' squares in an area of this size, outside of which nothing is touched.
    static QRegion squares(const QSize& size);

    /// A shape of this size with round corners, for windows that cannot be translucent.
    static QRegion shape(const QSize& size);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool _isTranslucent = true;
};

}  // namespace TarnwickDirect
