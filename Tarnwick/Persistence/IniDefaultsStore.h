#pragma once

#include "Tarnwick/Persistence/DefaultsStore.h"
#include "Tarnwick/Persistence/Files.h"
#include "Tarnwick/Persistence/IniDocument.h"

#include <filesystem>
#include <map>
#include <string>

namespace Tarnwick {

/// The defaults in an INI file, every key at the top level. Main thread only.
///
/// `set`, `remove` and `change` have everything on disk when they return. Under a lock on the
/// folder they read the file anew, change the lines of these keys and replace the file as a whole,
/// so processes do not undo each other's changes, and what this program does not understand stays
/// as it is. Nothing is written when every line stays the same. A new file can be read and written
/// by its owner alone.
///
/// A file that cannot be read is never written. Changes that could not be written live in memory,
/// `problem` tells of them, and the next change tries again. QSettings would put the part of a file
/// that still fitted on a full disk in the place of the whole.
class IniDefaultsStore : public DefaultsStore {
public:
    /// A larger file is no settings file of ours, and counts as one that cannot be read.
    static constexpr std::size_t largestFile = std::size_t{16} * 1024 * 1024;

    explicit IniDefaultsStore(std::filesystem::path file = defaultFile());

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
    Files::Stamp _stamp;
    IniDocument _document;
    /// By encoded key; nothing for a key that is to go.
    std::map<std::string, std::optional<std::string>, std::less<>> _unsaved;
    std::size_t _textHash = 0;  ///< Of what was read or written last.
    std::uint64_t _revision = 0;
    bool _isChanging = false;
    std::optional<std::string> _problem;
};

}  // namespace Tarnwick
