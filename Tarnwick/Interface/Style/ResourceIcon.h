#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace Tarnwick {

/// An icon of the resource bundle. If it is missing or invalid, the system symbol
/// "questionmark.square.dashed" replaces it.
struct ResourceIcon {
    QString name;            ///< The file's base name.
    bool isTemplate = true;  ///< Whether the icon takes the foreground color.

    /// Fills the rectangle, in logical pixels. `foreground` only applies to templates.
    void draw(QPainter& painter, const QRectF& rectangle, const QColor& foreground) const;
};

}  // namespace Tarnwick
