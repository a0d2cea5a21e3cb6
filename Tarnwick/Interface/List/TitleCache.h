#pragma once

#include "Tarnwick/Interface/List/TitleLayout.h"
#include "Tarnwick/Interface/List/TitleMeasure.h"

#include <QHash>

#include <memory>
#include <utility>

namespace Tarnwick {

/// Titles of one style: how many lines each takes, and the layouts of those that were last painted.
/// Main thread only.
class TitleCache {
public:
    explicit TitleCache(const LineStyle& style)
        : _style(style)
        , _measure(style)
    {}

    /// 1 or 2, in a column of `width` logical pixels.
    int lineCount(const QString& title, int width) { return _measure.lineCount(title, width); }

    std::shared_ptr<const TitleLayout> layout(const QString& title, int width);

private:
    LineStyle _style;
    TitleMeasure _measure;
    QHash<std::pair<int, QString>, std::shared_ptr<const TitleLayout>> _layouts;
};

}  // namespace Tarnwick
