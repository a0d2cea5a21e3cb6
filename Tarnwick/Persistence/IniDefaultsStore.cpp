#include "Tarnwick/Persistence/IniDefaultsStore.h"

#include "Tarnwick/Persistence/IniValue.h"

#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <functional>
#include <set>
#include <system_error>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace Tarnwick {
namespace {

std::string sentence(
    const std::filesystem::path& file, const char* verb, const std::error_code& reason)
{
    return "The settings file " + file.string() + " cannot be " + verb + " (" + reason.message()
           + "), so changes to the settings are not saved.";
}

/// The permissions of the old file, for the new one. Throws if the old file is write-protected: a
/// writable folder alone would allow replacing it.
mode_t permissionsFor(const std::filesystem::path& file)
{
    struct stat status{};
    if (stat(file.c_str(), &status) != 0) {
        return Files::ownerOnly;
    }
    if (access(file.c_str(), W_OK) != 0) {
        throw std::system_error(errno, std::generic_category());
    }
    return status.st_mode & 07777;
}

}  // namespace

IniDefaultsStore::IniDefaultsStore(std::filesystem::path file, Values forOnce)
    : _file(std::move(file))
    , _forOnce(std::move(forOnce))
{
    read();
}

std::filesystem::path IniDefaultsStore::defaultFile()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::filesystem::path(QFile::encodeName(folder).toStdString()) / "dev.tarnwick.Tarnwick"
           / "settings.ini";
}

std::optional<std::string> IniDefaultsStore::value(std::string_view key) const
{
    if (const auto fixed = _forOnce.find(key); fixed != _forOnce.end()) {
        return fixed->second;
    }
    const std::string name = IniValue::encodeKey(key);
    if (const auto unsaved = _unsaved.find(name); unsaved != _unsaved.end()) {
        return unsaved->second;
    }
    const auto text = _document.value(name);
    return text ? std::optional<std::string>(*text) : std::nullopt;
}

void IniDefaultsStore::set(std::string_view key, const std::string& value)
{
    if (!_forOnce.contains(key)) {
        change([&] { _unsaved.insert_or_assign(IniValue::encodeKey(key), value); });
    }
}

void IniDefaultsStore::remove(std::string_view key)
{
    if (!_forOnce.contains(key)) {
        change([&] { _unsaved.insert_or_assign(IniValue::encodeKey(key), std::nullopt); });
    }
}

std::vector<std::string> IniDefaultsStore::keys(std::string_view prefix) const
{
    const std::string start = IniValue::encodeKey(prefix);
    const auto stored = _document.keys(start);
    std::set<std::string> names(stored.begin(), stored.end());
    for (const auto& [name, value] : _unsaved) {
        if (!value) {
            names.erase(name);
        } else if (name.starts_with(start)) {
            names.insert(name);
        }
    }
    for (const auto& [key, value] : _forOnce) {
        if (key.starts_with(prefix)) {
            names.insert(IniValue::encodeKey(key));
        }
    }
    std::vector<std::string> found;
    for (const std::string& name : names) {
        if (auto key = IniValue::decodeKey(name)) {
            found.push_back(std::move(*key));
        }
    }
    return found;
}

void IniDefaultsStore::change(const std::function<void()>& changes)
{
    if (_isChanging) {
        changes();
        return;
    }
    std::optional<Files::FolderLock> lock;
    bool isReadable = false;
    try {
        lock.emplace(_file);
        isReadable = read();
    } catch (const std::system_error& error) {
        _problem = sentence(_file, "written", error.code());
    }
    _isChanging = true;
    changes();
    _isChanging = false;
    if (!isReadable) {
        return;
    }
    try {
        writeUnsaved();
    } catch (const std::system_error& error) {
        _problem = sentence(_file, "written", error.code());
    }
}

void IniDefaultsStore::refresh()
{
    if (Files::stampOf(_file) != _stamp) {
        read();
    }
}

/// Returns whether the file could be read. If not, the previous contents stay in effect.
bool IniDefaultsStore::read()
{
    try {
        _stamp = Files::stampOf(_file);
        const std::string text = Files::read(_file, largestFile).value_or(std::string());
        const std::size_t hash = std::hash<std::string>()(text);
        if (hash != _textHash) {
            _document = IniDocument(text);
            _textHash = hash;
            ++_revision;
        }
    } catch (const std::system_error& error) {
        _problem = sentence(_file, "read", error.code());
        return false;
    }
    if (_unsaved.empty()) {
        _problem.reset();
    }
    return true;
}

void IniDefaultsStore::writeUnsaved()
{
    IniDocument document = _document;
    bool isDifferent = false;
    std::set<std::string, std::less<>> removed;
    for (const auto& [key, value] : _unsaved) {
        if (document.value(key) == value) {
            continue;
        }
        if (value) {
            document.set(key, *value);
        } else {
            removed.insert(key);
        }
        isDifferent = true;
    }
    document.remove(removed);
    if (isDifferent) {
        const std::string text = document.text();
        Files::replace(_file, text, permissionsFor(_file));
        _textHash = std::hash<std::string>()(text);
        _document = std::move(document);
        _stamp = Files::stampOf(_file);
    }
    _unsaved.clear();
    _problem.reset();
}

}  // namespace Tarnwick
