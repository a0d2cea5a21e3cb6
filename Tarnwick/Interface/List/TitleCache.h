#pragma once

#include "Tarnwick/Interface/List/TitleLayout.h"
#include "Tarnwick/Interface/List/TitleMeasure.h"

#include <QHash>

#include <memory>
#include <utility>

namespace Tarnwick {

/// The line counts of titles in one style and the layouts last painted. Main thread only.
class TitleCache {
public:
    explicit TitleCache(const LineStyle& style)
        : _style(style)
        , _measure(style)
    {}

    /// 1 or 2. `width` is in logical pixels.
    int lineCount(const QString& title, int width) { return _measure.lineCount(title, width); }

    std::shared_ptr<const TitleLayout> layout(const QString& title, int width);

private:
    LineStyle _style;
    TitleMeasure _measure;
    QHash<std::pair<int, QString>, std::shared_ptr<const TitleLayout>> _layouts;
};

}  // namespace Tarnwick
