#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QStringList>
#include <QTextLayout>

class QPainter;

namespace Tarnwick {

/// A text wrapped into lines of one style, if necessary within words. Beyond the maximum number of
/// lines, the last one ends in an ellipsis.
class WrappedText {
public:
    static constexpr int anyNumber = 10000;

    WrappedText(
        const QString& text, const LineStyle& style, double width, int mostLines = anyNumber);

    const QStringList& lines() const { return _lines; }

    int lineCount() const { return static_cast<int>(_lines.size()); }

    int height() const { return lineCount() * _style.height; }

    bool isElided() const { return _isElided; }

    /// Lines are aligned within `width`.
    void draw(
        QPainter& painter,
        const QPointF& topLeft,
        double width,
        const QColor& color,
        Qt::AlignmentFlag alignment = Qt::AlignLeft) const;

private:
    LineStyle _style;
    QStringList _lines;
    bool _isElided = false;
};

/// The least width that keeps the number of lines, to avoid a single word on the last one.
double balancedWidth(const QString& text, const LineStyle& style, double width);

}  // namespace Tarnwick
