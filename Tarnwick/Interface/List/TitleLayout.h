#pragma once

#include "Tarnwick/Interface/List/FindMatches.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QPointF>
#include <QString>
#include <QTextLayout>

#include <vector>

class QPainter;

namespace Tarnwick {

/// A title set in at most two lines of a column. It is aligned to the side on which its first
/// strong character has it begin; what does not fit ends in "…". Main thread only.
class TitleLayout {
public:
    static constexpr int mostLines = 2;

    /// `width` in logical pixels.
    TitleLayout(const QString& title, const LineStyle& style, int width);

    int lineCount() const { return _layout.lineCount(); }

    /// Whether part of the title is not shown.
    bool isElided() const { return _isElided; }

    bool isRightToLeft() const { return _isRightToLeft; }

    /// What is shown, without the line break.
    QString shownText() const { return _layout.text(); }

    /// What stands in one line, with the space at which it breaks. Requires: `number` is less than
    /// `lineCount()`.
    QString lineText(int number) const;

    /// Draws it with the upper left corner of its column at `topLeft`. Every line keeps its
    /// height, whatever fonts its characters need.
    void draw(QPainter& painter, const QPointF& topLeft, const QColor& color) const;

    /// Draws plates behind these ranges of the title, as far as it shows them, and their letters
    /// again. To be called after `draw`.
    void drawMarks(
        QPainter& painter,
        const QPointF& topLeft,
        const std::vector<TextRange>& ranges,
        const Palette& palette) const;

    /// Boxes around these ranges of the title, line by line, in a column that begins at `topLeft`.
    /// Where the direction turns a range has several.
    std::vector<QRectF> boxesOf(int line, const std::vector<TextRange>& ranges) const;

private:
    void elideLastLine(const QString& title, double width);

    /// Where the line's text begins, in a painter that draws the column at `topLeft`.
    QPointF lineOrigin(const QPainter& painter, const QPointF& topLeft, int line) const;
    void drawLine(QPainter& painter, const QPointF& origin, int line) const;

    LineStyle _style;
    QString _title;
    QTextLayout _layout;
    int _width = 0;
    bool _isElided = false;
    bool _isRightToLeft = false;
};

/// A title as it is set: line breaks and other control characters become spaces.
QString titleText(const std::string& title);

}  // namespace Tarnwick
