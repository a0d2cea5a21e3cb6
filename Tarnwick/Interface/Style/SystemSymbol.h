#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

#include <optional>

class QPainter;

namespace Tarnwick {

/// An outlined sign of the program's own family by its name, such as "tray" or
/// "exclamationmark.triangle". It always takes the foreground color.
struct SystemSymbol {
    QString name;
    /// Of the outlines on a grid of 24. Nothing chooses it by the size: thin when large, strong
    /// when small.
    std::optional<double> strokeWidth = {};

    /// Fills the rectangle, in logical pixels. A name that is not in the family draws
    /// "questionmark.square.dashed".
    void draw(QPainter& painter, const QRectF& rectangle, const QColor& foreground) const;
};

}  // namespace Tarnwick
