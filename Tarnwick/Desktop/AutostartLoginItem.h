#pragma once

#include "GitHubProvider/Process/Environment.h"
#include "Tarnwick/Desktop/LoginItem.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace Tarnwick {

/// The contents of an autostart entry. Safe from any thread.
namespace AutostartEntry {

/// The program's entry in the user's autostart folder.
std::filesystem::path file(const GitHub::Environment& environment);

/// An entry that starts this executable hidden.
std::string text(const std::filesystem::path& executable);

/// Whether desktops start this entry: it is neither hidden nor disabled.
bool isEnabled(std::string_view entry);

}  // namespace AutostartEntry

class AutostartLoginItem final : public LoginItem {
public:
    AutostartLoginItem(std::filesystem::path file, std::filesystem::path executable);

    /// False if the entry cannot be read.
    bool isEnabled() const override;

    /// Replaces an existing entry.
    void registerItem() override;

    void unregisterItem() override;

private:
    std::filesystem::path _file;
    std::filesystem::path _executable;
};

}  // namespace Tarnwick
