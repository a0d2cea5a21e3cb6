#include "Tarnwick/Persistence/OverridingDefaults.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace Tarnwick {

OverridingDefaults::OverridingDefaults(
    std::shared_ptr<DefaultsStore> defaults, QString key, QVariant value)
    : _defaults(std::move(defaults))
    , _key(std::move(key))
    , _value(std::move(value))
{
    assert(_defaults != nullptr);
}

std::optional<QVariant> OverridingDefaults::value(const QString& key) const
{
    return key == _key ? std::optional(_value) : _defaults->value(key);
}

void OverridingDefaults::set(const QString& key, const QVariant& value)
{
    if (key != _key) {
        _defaults->set(key, value);
    }
}

void OverridingDefaults::remove(const QString& key)
{
    if (key != _key) {
        _defaults->remove(key);
    }
}

std::vector<QString> OverridingDefaults::keys(const QString& prefix) const
{
    std::vector<QString> keys = _defaults->keys(prefix);
    if (_key.startsWith(prefix) && std::ranges::find(keys, _key) == keys.end()) {
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

std::optional<QString> OverridingDefaults::problem() const
{
    return _defaults->problem();
}

}  // namespace Tarnwick
