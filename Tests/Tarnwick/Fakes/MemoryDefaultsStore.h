#pragma once

#include "Tarnwick/Persistence/DefaultsStore.h"

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace Fakes {

/// A store in memory that records which keys were written, in order.
class MemoryDefaultsStore : public Tarnwick::DefaultsStore {
public:
    std::optional<QVariant> value(const QString& key) const override
    {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    void set(const QString& key, const QVariant& value) override
    {
        values.insert_or_assign(key, value);
        writtenKeys.push_back(key);
    }

    void remove(const QString& key) override
    {
        values.erase(key);
        removedKeys.push_back(key);
    }

    std::vector<QString> keys(const QString& prefix) const override
    {
        std::vector<QString> found;
        for (const auto& [key, value] : values) {
            if (key.startsWith(prefix)) {
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

    std::optional<QString> problem() const override { return reportedProblem; }

    std::map<QString, QVariant> values;
    std::vector<QString> writtenKeys;
    std::vector<QString> removedKeys;
    std::function<void()> beforeChange;  ///< What another process does before the next change.
    int refreshCount = 0;
    std::optional<QString> reportedProblem;

private:
    mutable std::uint64_t _revision = 0;
};

}  // namespace Fakes
