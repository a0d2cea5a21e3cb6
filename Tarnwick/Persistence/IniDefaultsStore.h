#pragma once

#include "Tarnwick/Persistence/DefaultsStore.h"
#include "Tarnwick/Persistence/Files.h"
#include "Tarnwick/Persistence/IniDocument.h"

#include <filesystem>
#include <map>
#include <string>

namespace Tarnwick {

/// Settings in an INI file, all keys at the top level. Main thread only.
/// `set`, `remove` and `change` are durable when they return. They lock the folder, reread the
/// file, change only the lines of their keys and replace the file as a whole. So concurrent changes
/// are kept, and so are unknown lines. Unchanged files are not written. A new file is readable by
/// its owner only.
/// A file that cannot be read is never written. Changes that could not be written are kept in
/// memory, reported by `problem` and written with the next change. QSettings is not used, because
/// on a full disk it replaces the file by a truncated one.
class IniDefaultsStore : public DefaultsStore {
public:
    /// Larger files count as unreadable.
    static constexpr std::size_t largestFile = std::size_t{16} * 1024 * 1024;

    /// By key, encoded.
    using Values = std::map<std::string, std::string, std::less<>>;

    /// The keys of `forOnce` have these values, which are never stored, whatever is set.
    explicit IniDefaultsStore(std::filesystem::path file = defaultFile(), Values forOnce = {});

    /// `dev.tarnwick.Tarnwick/settings.ini` in the user's configuration folder.
    static std::filesystem::path defaultFile();

    std::optional<std::string> value(std::string_view key) const override;
    void set(std::string_view key, const std::string& value) override;
    void remove(std::string_view key) override;
    std::vector<std::string> keys(std::string_view prefix) const override;

    std::uint64_t revision() const override { return _revision; }

    void change(const std::function<void()>& changes) override;
    void refresh() override;

    std::optional<std::string> problem() const override { return _problem; }

private:
    bool read();
    void writeUnsaved();

    std::filesystem::path _file;
    Values _forOnce;
    Files::Stamp _stamp;
    IniDocument _document;
    /// By encoded key; nothing for a key to remove.
    std::map<std::string, std::optional<std::string>, std::less<>> _unsaved;
    std::size_t _textHash = 0;  ///< Of the text last read or written.
    std::uint64_t _revision = 0;
    bool _isChanging = false;
    std::optional<std::string> _problem;
};

}  // namespace Tarnwick
