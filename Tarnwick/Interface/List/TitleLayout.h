#pragma once

#include "Tarnwick/Interface/Look/Appearance.h"

#include <QPointF>
#include <QString>
#include <QTextLayout>

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

private:
    void elideLastLine(const QString& title, double width);

    LineStyle _style;
    QTextLayout _layout;
    int _width = 0;
    bool _isElided = false;
    bool _isRightToLeft = false;
};

/// A title as it is set: line breaks and other control characters become spaces.
QString titleText(const std::string& title);

}  // namespace Tarnwick
