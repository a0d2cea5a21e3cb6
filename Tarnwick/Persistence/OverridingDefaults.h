#pragma once

#include "Tarnwick/Persistence/DefaultsStore.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Tarnwick {

/// Wraps other settings and overrides one value, which is never stored. Main thread only.
class OverridingDefaults final : public DefaultsStore {
public:
    /// `value` is encoded. Requires: `defaults` is not null.
    OverridingDefaults(std::shared_ptr<DefaultsStore> defaults, std::string key, std::string value);

    std::optional<std::string> value(std::string_view key) const override;
    void set(std::string_view key, const std::string& value) override;
    void remove(std::string_view key) override;
    std::vector<std::string> keys(std::string_view prefix) const override;
    std::uint64_t revision() const override;
    void change(const std::function<void()>& changes) override;
    void refresh() override;
    std::optional<std::string> problem() const override;

private:
    std::shared_ptr<DefaultsStore> _defaults;
    std::string _key;
    std::string _value;
};

}  // namespace Tarnwick
