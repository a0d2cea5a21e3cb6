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

/// The lines of an INI file. Changing a key leaves all other lines as they are, byte for byte,
/// including comments and invalid lines.
/// Only keys in the section "General" or before any section count. Keys and values are in their
/// encoded form, without surrounding white space. Of a duplicate key the last line counts.
class IniDocument {
public:
    IniDocument() = default;
    explicit IniDocument(std::string_view text);

    std::optional<std::string_view> value(std::string_view key) const;

    /// Requires: `key` has no line break or "=", and no "[", ";" or "#" at its start; `value` has
    /// no line break.
    void set(std::string_view key, std::string_view value);

    /// Removes every line of these keys.
    void remove(const std::set<std::string, std::less<>>& keys);

    /// The keys that begin with `prefix`, in ascending order.
    std::vector<std::string> keys(std::string_view prefix) const;

    std::string text() const;

private:
    void findKeys();

    std::vector<std::string> _lines;
    std::map<std::string, std::size_t, std::less<>> _keys;  ///< Key to line number.
    std::size_t _end = 0;  ///< The line at which new keys are inserted.
};

}  // namespace Tarnwick
