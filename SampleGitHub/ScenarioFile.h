#pragma once

#include "SampleGitHub/Scenario.h"

#include <filesystem>
#include <optional>
#include <string>

namespace SampleGitHub {

/// A scenario's file, which may be changed while it is served. Belongs to one thread.
class ScenarioFile {
public:
    /// `nameOrFile` as `loadScenario` takes it; with a login, that of one of the scenario's
    /// accounts is signed in. Throws `std::runtime_error` with one English sentence.
    ScenarioFile(std::string nameOrFile, std::optional<std::string> login);

    const Scenario& scenario() const { return _scenario; }

    /// The scenario when the file has changed since it was last read. A file that cannot be read,
    /// because it is being written perhaps, counts as unchanged and is tried again.
    std::optional<Scenario> changed();

private:
    struct Stamp {
        std::filesystem::file_time_type time;
        std::uintmax_t size = 0;

        bool operator==(const Stamp&) const = default;
    };

    Scenario load() const;
    Stamp stamp() const;

    std::string _nameOrFile;
    std::optional<std::string> _login;
    Stamp _stamp;  ///< From before the reading, so that no later change is missed.
    Scenario _scenario;
};

}  // namespace SampleGitHub
