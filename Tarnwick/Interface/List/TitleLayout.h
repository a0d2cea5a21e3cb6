#pragma once

#include "Tarnwick/Interface/List/FindMatches.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QPointF>
#include <QString>
#include <QTextLayout>

#include <vector>

class QPainter;

namespace Tarnwick {

/// A title in at most two lines, elided if it does not fit. It is aligned by the direction of its
/// first strong character. Main thread only.
class TitleLayout {
public:
    static constexpr int mostLines = 2;

    /// `width` is in logical pixels.
    TitleLayout(const QString& title, const LineStyle& style, int width);

    int lineCount() const { return _layout.lineCount(); }

    bool isElided() const { return _isElided; }

    bool isRightToLeft() const { return _isRightToLeft; }

    /// The visible text, without the line break.
    QString shownText() const { return _layout.text(); }

    /// One line, including the space at its end. Requires: `number` is less than `lineCount()`.
    QString lineText(int number) const;

    /// `topLeft` is that of the column. Fallback fonts do not change the line height.
    void draw(QPainter& painter, const QPointF& topLeft, const QColor& color) const;

    /// Highlights the visible parts of these ranges of the title. Call after `draw`.
    void drawMarks(
        QPainter& painter,
        const QPointF& topLeft,
        const std::vector<TextRange>& ranges,
        const Palette& palette) const;

    /// The boxes of these ranges within a line. With mixed directions a range has several.
    std::vector<QRectF> boxesOf(int line, const std::vector<TextRange>& ranges) const;

private:
    void elideLastLine(const QString& title, double width);

    /// The origin of the line's text.
    QPointF lineOrigin(const QPainter& painter, const QPointF& topLeft, int line) const;
    void drawLine(QPainter& painter, const QPointF& origin, int line) const;

    LineStyle _style;
    QString _title;
    QTextLayout _layout;
    int _width = 0;
    bool _isElided = false;
    bool _isRightToLeft = false;
};

/// The title in one line, with control characters replaced by spaces.
QString titleText(const std::string& title);

}  // namespace Tarnwick
