#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QStringList>
#include <QTextLayout>

class QPainter;

namespace Tarnwick {

/// A text laid out in lines of one style: wrapped between words or, where a word is too long,
/// anywhere. When it takes more lines than it may, the last ends in an ellipsis.
class WrappedText {
public:
    static constexpr int anyNumber = 10000;

    WrappedText(
        const QString& text, const LineStyle& style, double width, int mostLines = anyNumber);

    const QStringList& lines() const { return _lines; }

    int lineCount() const { return static_cast<int>(_lines.size()); }

    int height() const { return lineCount() * _style.height; }

    bool isElided() const { return _isElided; }

    /// `width` is the one that lines are aligned in.
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

/// The least width in which the text takes no more lines than it takes in `width`, so that no
/// single word is left over on the last one.
double balancedWidth(const QString& text, const LineStyle& style, double width);

}  // namespace Tarnwick
