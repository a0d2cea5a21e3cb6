#pragma once

#include "Tarnwick/Persistence/DefaultsStore.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace Tarnwick {

/// Other settings, of which one has another value for as long as this lives. That value is never
/// stored. Main thread only.
class OverridingDefaults final : public DefaultsStore {
public:
    /// Requires: defaults.
    OverridingDefaults(std::shared_ptr<DefaultsStore> defaults, QString key, QVariant value);

    std::optional<QVariant> value(const QString& key) const override;
    void set(const QString& key, const QVariant& value) override;
    void remove(const QString& key) override;
    std::vector<QString> keys(const QString& prefix) const override;
    std::uint64_t revision() const override;
    void change(const std::function<void()>& changes) override;
    void refresh() override;
    std::optional<QString> problem() const override;

private:
    std::shared_ptr<DefaultsStore> _defaults;
    QString _key;
    QVariant _value;
};

}  // namespace Tarnwick
