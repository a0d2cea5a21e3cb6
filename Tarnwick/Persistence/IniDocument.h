#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnwick {

/// The text of an INI file as lines, of which one key at a time is changed: comments, other
/// sections and lines that mean nothing stay as they are, to the byte.
///
/// Only the keys of the section "General" count, and those before any section. Keys and values are
/// the bytes as they stand in the file, without the white space around them. Where a key stands
/// several times, the last one counts.
class IniDocument {
public:
    IniDocument() = default;
    explicit IniDocument(std::string_view text);

    std::optional<std::string_view> value(std::string_view key) const;

    /// Requires: `key` has no line break, "=", or bracket or comment sign at its front; `value` has
    /// no line break.
    void set(std::string_view key, std::string_view value);

    /// Takes out every line of these keys.
    void remove(const std::set<std::string, std::less<>>& keys);

    /// The keys that begin with `prefix`, in ascending order.
    std::vector<std::string> keys(std::string_view prefix) const;

    std::string text() const;

private:
    void findKeys();

    std::vector<std::string> _lines;
    std::map<std::string, std::size_t, std::less<>> _keys;  ///< On which line each key counts.
    std::size_t _end = 0;  ///< Before which line a new key belongs.
};

}  // namespace Tarnwick
