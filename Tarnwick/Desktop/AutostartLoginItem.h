#pragma once

#include "GitHubProvider/Process/Environment.h"
#include "Tarnwick/Desktop/LoginItem.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace Tarnwick {

/// What stands in an autostart entry. Safe from any thread.
namespace AutostartEntry {

/// The file of the program's own entry in the user's folder of autostart entries.
std::filesystem::path file(const GitHub::Environment& environment);

/// An entry that starts this executable hidden.
std::string text(const std::filesystem::path& executable);

/// Whether desktops start the program of this entry: they leave out those that are marked as hidden
/// or switched off.
bool isEnabled(std::string_view entry);

}  // namespace AutostartEntry

/// The program's entry among those that the desktop starts at login.
class AutostartLoginItem final : public LoginItem {
public:
    AutostartLoginItem(std::filesystem::path file, std::filesystem::path executable);

    /// Nothing counts as enabled that cannot be read.
    bool isEnabled() const override;

    /// Puts an entry in the place of whatever was there.
    void registerItem() override;

    /// Removes the entry, whoever wrote it.
    void unregisterItem() override;

private:
    std::filesystem::path _file;
    std::filesystem::path _executable;
};

}  // namespace Tarnwick
