#pragma once

#include "PullRequestKit/Date.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnwick {

/// The user's settings as a table from keys to values in the form of `IniValue`, which the readers
/// and writers below give their types. Main thread only.
class DefaultsStore {
public:
    DefaultsStore() = default;
    DefaultsStore(const DefaultsStore&) = delete;
    DefaultsStore& operator=(const DefaultsStore&) = delete;
    virtual ~DefaultsStore() = default;

    /// What is stored under the key, or nothing when the key is absent.
    virtual std::optional<std::string> value(std::string_view key) const = 0;

    /// Stores an encoded value. Never fails towards the caller: from here on `value` yields what
    /// was set, and `problem` tells when it could not be kept.
    virtual void set(std::string_view key, const std::string& value) = 0;

    /// Takes the key out, so that it is absent. Fails as `set` does.
    virtual void remove(std::string_view key) = 0;

    /// The keys that begin with `prefix`, each once.
    virtual std::vector<std::string> keys(std::string_view prefix) const = 0;

    /// Another number than before whenever something else is stored than this process has read and
    /// written.
    virtual std::uint64_t revision() const = 0;

    /// Runs `changes`, once in any case, as one step that no other process comes between: what is
    /// stored is read first, and everything that `changes` sets and removes is stored together at
    /// the end. Requires: `changes` throws nothing.
    virtual void change(const std::function<void()>& changes) = 0;

    /// Reads again if another process changed what is stored.
    virtual void refresh() = 0;

    /// What is wrong with the store itself, as one English sentence for the user, or nothing.
    virtual std::optional<std::string> problem() const { return std::nullopt; }
};

/// The readers yield nothing when the key is absent or holds another type.

/// "true", "1", "false" or "0", in any case of letters.
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
