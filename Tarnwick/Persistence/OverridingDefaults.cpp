#include "Tarnwick/Persistence/OverridingDefaults.h"

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
