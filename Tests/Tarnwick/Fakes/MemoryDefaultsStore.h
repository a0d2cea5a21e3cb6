#pragma once

#include "Support/Names.h"
#include "Tarnwick/Persistence/DefaultsStore.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace TestSupport {

/// A store in memory that records which keys were written, in order.
class MemoryDefaultsStore : public Tarnwick::DefaultsStore {
public:
    std::optional<std::string> value(std::string_view key) const override
    {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    void set(std::string_view key, const std::string& value) override
    {
        values.insert_or_assign(std::string(key), value);
        writtenKeys.emplace_back(key);
    }

    void remove(std::string_view key) override { values.erase(std::string(key)); }

    std::vector<std::string> keys(std::string_view prefix) const override
    {
        std::vector<std::string> found;
        for (const auto& [key, value] : values) {
            if (key.starts_with(prefix)) {
                found.push_back(key);
            }
        }
        return found;
    }

    /// Tests write to `values`, so whatever was read may be something else by now.
    std::uint64_t revision() const override { return ++_revision; }

    void change(const std::function<void()>& changes) override
    {
        if (beforeChange) {
            std::exchange(beforeChange, nullptr)();
        }
        changes();
    }

    void refresh() override { ++refreshCount; }

    std::optional<std::string> problem() const override { return reportedProblem; }

    std::map<std::string, std::string, std::less<>> values;
    std::vector<std::string> writtenKeys;
    std::function<void()> beforeChange;  ///< What another process does before the next change.
    int refreshCount = 0;
    std::optional<std::string> reportedProblem;

private:
    mutable std::uint64_t _revision = 0;
};

}  // namespace TestSupport
