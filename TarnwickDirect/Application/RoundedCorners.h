#pragma once

#include <QRegion>
#include <QWidget>

namespace TarnwickDirect {

/// An overlay that rounds the corners of a window, below its border only. Transparent for the
/// pointer. Main thread only.
class RoundedCorners final : public QWidget {
public:
    static constexpr int radius = 16;

    explicit RoundedCorners(QWidget* window);

    /// The corners of a translucent window are cleared. Those of an opaque one, which is masked at
    /// whole pixels, are painted in the border's black to hide the steps of the mask.
    void setTranslucent(bool isTranslucent);

    /// The corner squares of an area of this size; nothing else is painted.
    static QRegion squares(const QSize& size);

    /// The mask of an opaque window.
    static QRegion shape(const QSize& size);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool _isTranslucent = true;
};

}  // namespace TarnwickDirect
