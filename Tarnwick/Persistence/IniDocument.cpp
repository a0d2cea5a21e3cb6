#include "Tarnwick/Persistence/IniDocument.h"

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr std::string_view whiteSpace = " \t\r";
constexpr std::string_view generalSection = "[General]";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(whiteSpace) + 1 - first);
}

bool isComment(std::string_view line)
{
    return line.starts_with(';') || line.starts_with('#');
}

/// Whether keys after this line are in the section "General".
bool countsAfter(std::string_view line, bool counted)
{
    const std::string_view text = trimmed(line);
    return text.starts_with('[') ? text == generalSection : counted;
}

std::string_view keyOf(std::string_view line)
{
    const std::size_t equals = line.find('=');
    return equals == std::string_view::npos || isComment(line) ? std::string_view()
                                                               : trimmed(line.substr(0, equals));
}

}  // namespace

IniDocument::IniDocument(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        _lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    findKeys();
}

std::optional<std::string_view> IniDocument::value(std::string_view key) const
{
    const auto found = _keys.find(key);
    if (found == _keys.end()) {
        return std::nullopt;
    }
    const std::string_view text = _lines[found->second];
    return trimmed(text.substr(text.find('=') + 1));
}

void IniDocument::set(std::string_view key, std::string_view value)
{
    std::string line = std::string(key) + "=" + std::string(value);
    if (const auto found = _keys.find(key); found != _keys.end()) {
        _lines[found->second] = std::move(line);
        return;
    }
    if (_lines.empty()) {
        _lines.emplace_back(generalSection);
        _end = 1;
    }
    // Appended after all other keys, so that their line numbers stay valid.
    _lines.insert(_lines.begin() + static_cast<std::ptrdiff_t>(_end), std::move(line));
    _keys.insert_or_assign(std::string(key), _end);
    ++_end;
}

void IniDocument::remove(const std::set<std::string, std::less<>>& keys)
{
    if (keys.empty()) {
        return;
    }
    bool counts = true;
    std::erase_if(_lines, [&](const std::string& text) {
        counts = countsAfter(text, counts);
        return counts && keys.contains(keyOf(trimmed(text)));
    });
    findKeys();
}

std::vector<std::string> IniDocument::keys(std::string_view prefix) const
{
    std::vector<std::string> found;
    for (auto entry = _keys.lower_bound(prefix);
         entry != _keys.end() && entry->first.starts_with(prefix);
         ++entry) {
        found.push_back(entry->first);
    }
    return found;
}

std::string IniDocument::text() const
{
    std::string text;
    for (const std::string& line : _lines) {
        text += line;
        text += '\n';
    }
    return text;
}

/// An index, because every row of the list looks up the key of its visit.
void IniDocument::findKeys()
{
    _keys.clear();
    _end = 0;
    bool counts = true;
    for (std::size_t index = 0; index < _lines.size(); ++index) {
        const std::string_view line = trimmed(_lines[index]);
        counts = countsAfter(line, counts);
        if (!counts || line.empty()) {
            continue;
        }
        _end = index + 1;
        if (const std::string_view key = keyOf(line); !key.empty()) {
            _keys.insert_or_assign(std::string(key), index);
        }
    }
}

}  // namespace Tarnwick
