#include "Tarnwick/Interface/List/TitleCache.h"

namespace Tarnwick {
namespace {

constexpr qsizetype mostLayouts = 200;

}  // namespace

std::shared_ptr<const TitleLayout> TitleCache::layout(const QString& title, int width)
{
    const std::pair key(width, title);
    if (const auto known = _layouts.constFind(key); known != _layouts.constEnd()) {
        return *known;
    }
    if (_layouts.size() >= mostLayouts) {
        _layouts.clear();
    }
    return *_layouts.insert(key, std::make_shared<TitleLayout>(title, _style, width));
}

}  // namespace Tarnwick
