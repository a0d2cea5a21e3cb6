#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

#include <optional>

class QPainter;

namespace Tarnwick {

/// A symbol of the program's own set by its name, such as "tray" or "exclamationmark.triangle". It
/// takes the foreground color.
struct SystemSymbol {
    QString name;
    /// Of the outlines on a grid of 24. Choose thin for large symbols and strong for small ones.
    std::optional<double> strokeWidth = {};

    /// Fills the rectangle, in logical pixels. An unknown name draws "questionmark.square.dashed".
    void draw(QPainter& painter, const QRectF& rectangle, const QColor& foreground) const;
};

}  // namespace Tarnwick
