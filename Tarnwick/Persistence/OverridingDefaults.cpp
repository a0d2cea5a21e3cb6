#include "Tarnwick/Persistence/OverridingDefaults.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace Tarnwick {

OverridingDefaults::OverridingDefaults(
    std::shared_ptr<DefaultsStore> defaults, std::string key, std::string value)
    : _defaults(std::move(defaults))
    , _key(std::move(key))
    , _value(std::move(value))
{
    assert(_defaults != nullptr);
}

std::optional<std::string> OverridingDefaults::value(std::string_view key) const
{
    return key == _key ? std::optional(_value) : _defaults->value(key);
}

void OverridingDefaults::set(std::string_view key, const std::string& value)
{
    if (key != _key) {
        _defaults->set(key, value);
    }
}

void OverridingDefaults::remove(std::string_view key)
{
    if (key != _key) {
        _defaults->remove(key);
    }
}

std::vector<std::string> OverridingDefaults::keys(std::string_view prefix) const
{
    std::vector<std::string> keys = _defaults->keys(prefix);
    if (_key.starts_with(prefix) && std::ranges::find(keys, _key) == keys.end()) {
        keys.push_back(_key);
    }
    return keys;
}

std::uint64_t OverridingDefaults::revision() const
{
    return _defaults->revision();
}

void OverridingDefaults::change(const std::function<void()>& changes)
{
    _defaults->change(changes);
}

void OverridingDefaults::refresh()
{
    _defaults->refresh();
}

std::optional<std::string> OverridingDefaults::problem() const
{
    return _defaults->problem();
}

}  // namespace Tarnwick
