#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace Tarnwick {

/// An icon file of the resource bundle. Where it is missing or cannot be read, the system symbol
/// "questionmark.square.dashed" stands in its place.
struct ResourceIcon {
    QString name;            ///< The file's base name.
    bool isTemplate = true;  ///< Whether the icon takes the foreground color.

    /// Fills the rectangle, in logical pixels; `foreground` counts for templates.
    void draw(QPainter& painter, const QRectF& rectangle, const QColor& foreground) const;
};

}  // namespace Tarnwick
