#pragma once

#include "PullRequestKit/Date.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnwick {

/// The user's settings by key. Values are encoded as by `IniValue`; the readers and writers below
/// convert them. Main thread only.
class DefaultsStore {
public:
    DefaultsStore() = default;
    DefaultsStore(const DefaultsStore&) = delete;
    DefaultsStore& operator=(const DefaultsStore&) = delete;
    virtual ~DefaultsStore() = default;

    /// The value of the key; nothing when absent.
    virtual std::optional<std::string> value(std::string_view key) const = 0;

    /// Stores an encoded value. Never throws: on a failure `value` still returns it and `problem`
    /// says why.
    virtual void set(std::string_view key, const std::string& value) = 0;

    /// Removes the key. Fails like `set`.
    virtual void remove(std::string_view key) = 0;

    /// The keys that begin with `prefix`, without duplicates.
    virtual std::vector<std::string> keys(std::string_view prefix) const = 0;

    /// Changes whenever another process changes what is stored.
    virtual std::uint64_t revision() const = 0;

    /// Runs `changes` once, as a transaction across processes: the stored values are reread first,
    /// and all changes are stored together at the end. Requires: `changes` does not throw.
    virtual void change(const std::function<void()>& changes) = 0;

    /// Rereads the values if another process changed them.
    virtual void refresh() = 0;

    /// The current problem of the store as an English sentence for the user, or nothing.
    virtual std::optional<std::string> problem() const { return std::nullopt; }
};

/// The readers return nothing when the key is absent or has another type.

/// "true", "1", "false" or "0", ignoring case.
std::optional<bool> readFlag(const DefaultsStore& store, std::string_view key);

std::optional<std::int64_t> readInteger(const DefaultsStore& store, std::string_view key);
std::optional<std::string> readText(const DefaultsStore& store, std::string_view key);
std::optional<std::vector<std::string>> readTextList(
    const DefaultsStore& store, std::string_view key);
std::optional<PullRequestKit::Date> readDate(const DefaultsStore& store, std::string_view key);

void writeFlag(DefaultsStore& store, std::string_view key, bool flag);
void writeInteger(DefaultsStore& store, std::string_view key, std::int64_t number);
void writeText(DefaultsStore& store, std::string_view key, std::string_view text);
void writeTextList(
    DefaultsStore& store, std::string_view key, const std::vector<std::string>& texts);
void writeDate(DefaultsStore& store, std::string_view key, PullRequestKit::Date date);

}  // namespace Tarnwick
