#include "Tarnwick/Desktop/AutostartLoginItem.h"

#include "GitHubProvider/Text.h"
#include "Tarnwick/Persistence/Files.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace Tarnwick {
namespace AutostartEntry {
namespace {

/// An argument with one of these characters must be quoted.
constexpr std::string_view reserved = " \t\n\r\"'\\><~|&;$*?#()`";

/// Quotes a path for a command line: backslashes before some characters in quotes, and "%" doubled.
std::string quoted(const std::string& path)
{
    std::string text;
    for (const char c : path) {
        if (std::string_view("\"`$\\").find(c) != std::string_view::npos) {
            text += '\\';
        } else if (c == '%') {
            text += '%';
        }
        text += c;
    }
    return path.find_first_of(reserved) == std::string::npos ? text : '"' + text + '"';
}

/// Escapes backslashes in the value of an entry.
std::string escaped(const std::string& value)
{
    std::string text;
    for (const char c : value) {
        switch (c) {
        case '\\':
            text += R"(\\)";
            break;
        case '\n':
            text += R"(\n)";
            break;
        case '\t':
            text += R"(\t)";
            break;
        case '\r':
            text += R"(\r)";
            break;
        default:
            text += c;
        }
    }
    return text;
}

/// The value of a key in the entry's first group; other groups are ignored.
std::optional<std::string> valueOf(std::string_view entry, std::string_view key)
{
    bool isInGroup = false;
    while (!entry.empty()) {
        const std::size_t end = std::min(entry.find('\n'), entry.size());
        const std::string line = GitHub::trimText(entry.substr(0, end));
        entry.remove_prefix(std::min(end + 1, entry.size()));
        const std::size_t equals = line.find('=');
        if (line.starts_with('[')) {
            isInGroup = line == "[Desktop Entry]";
        } else if (
            isInGroup && equals != std::string::npos
            && GitHub::trimText(line.substr(0, equals)) == key) {
            return GitHub::trimText(line.substr(equals + 1));
        }
    }
    return std::nullopt;
}

}  // namespace

std::filesystem::path file(const GitHub::Environment& environment)
{
    // A relative path is invalid here.
    std::filesystem::path folder = GitHub::valueIn(environment, "XDG_CONFIG_HOME");
    if (!folder.is_absolute()) {
        folder = std::filesystem::path(GitHub::valueIn(environment, "HOME")) / ".config";
    }
    return folder / "autostart" / "dev.tarnwick.Tarnwick.desktop";
}

std::string text(const std::filesystem::path& executable)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Tarnwick\n"
           "Comment=Your open GitHub pull requests\n"
           "Icon=dev.tarnwick.Tarnwick\n"
           "Exec="
           + escaped(quoted(executable.string()))
           + " --background\n"
             "Terminal=false\n"
             "StartupNotify=false\n"
             "X-GNOME-Autostart-enabled=true\n";
}

bool isEnabled(std::string_view entry)
{
    return valueOf(entry, "Hidden") != "true"
           && valueOf(entry, "X-GNOME-Autostart-enabled") != "false";
}

}  // namespace AutostartEntry

namespace {

constexpr std::size_t largestEntry = std::size_t{1} << 20;
constexpr mode_t entryPermissions = 0644;

[[noreturn]] void throwFor(const std::filesystem::path& file, const std::error_code& reason)
{
    throw std::runtime_error(
        "The entry " + file.string() + " cannot be changed (" + reason.message() + ").");
}

}  // namespace

AutostartLoginItem::AutostartLoginItem(std::filesystem::path file, std::filesystem::path executable)
    : _file(std::move(file))
    , _executable(std::move(executable))
{}

bool AutostartLoginItem::isEnabled() const
{
    try {
        const auto entry = Files::read(_file, largestEntry);
        return entry && AutostartEntry::isEnabled(*entry);
    } catch (const std::system_error&) {
        return false;
    }
}

void AutostartLoginItem::registerItem()
{
    try {
        Files::replace(_file, AutostartEntry::text(_executable), entryPermissions);
    } catch (const std::system_error& error) {
        throwFor(_file, error.code());
    }
}

void AutostartLoginItem::unregisterItem()
{
    std::error_code error;
    if (!std::filesystem::remove(_file, error) && error) {
        throwFor(_file, error);
    }
}

}  // namespace Tarnwick
