#include "Tarnwick/Persistence/IniDefaultsStore.h"

#include "Tarnwick/Persistence/IniValue.h"

#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <system_error>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace Tarnwick {
namespace {

QString sentence(const std::filesystem::path& file, const char* verb, const std::error_code& reason)
{
    return QStringLiteral(
               "The settings file %1 cannot be %2 (%3), so changes to the settings are not "
               "saved.")
        .arg(
            QString::fromStdString(file.string()),
            QString::fromLatin1(verb),
            QString::fromStdString(reason.message()));
}

/// The permissions for the new file: those of the old one. Throws where the old one is protected
/// from writing, which a file in a writable folder is not by itself.
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

IniDefaultsStore::IniDefaultsStore(std::filesystem::path file)
    : _file(std::move(file))
{
    read();
}

std::filesystem::path IniDefaultsStore::defaultFile()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::filesystem::path(QFile::encodeName(folder).toStdString()) / "dev.tarnwick.Tarnwick"
           / "settings.ini";
}

std::optional<QVariant> IniDefaultsStore::value(const QString& key) const
{
    const std::string name = IniValue::encodeKey(key);
    if (const auto unsaved = _unsaved.find(name); unsaved != _unsaved.end()) {
        return IniValue::decode(unsaved->second);
    }
    const auto text = _document.value(name);
    return text ? std::optional(IniValue::decode(*text)) : std::nullopt;
}

void IniDefaultsStore::set(const QString& key, const QVariant& value)
{
    change([&] { _unsaved.insert_or_assign(IniValue::encodeKey(key), IniValue::encode(value)); });
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

/// Reads the file; whether that was possible. Where it was not, what was read before still counts.
bool IniDefaultsStore::read()
{
    try {
        _stamp = Files::stampOf(_file);
        _document = IniDocument(Files::read(_file, largestFile).value_or(std::string()));
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
    for (const auto& [key, value] : _unsaved) {
        if (document.value(key) != value) {
            document.set(key, value);
            isDifferent = true;
        }
    }
    if (isDifferent) {
        Files::replace(_file, document.text(), permissionsFor(_file));
        _document = std::move(document);
        _stamp = Files::stampOf(_file);
    }
    _unsaved.clear();
    _problem.reset();
}

}  // namespace Tarnwick
