#pragma once

#include "SampleGitHub/Scenario.h"

#include <filesystem>
#include <optional>
#include <string>

namespace SampleGitHub {

/// A scenario file that may change while it is served. Belongs to one thread.
class ScenarioFile {
public:
    /// `nameOrFile` is as for `loadScenario`; `login` overrides the account signed in. Throws
    /// `std::runtime_error` with one English sentence.
    ScenarioFile(std::string nameOrFile, std::optional<std::string> login);

    const Scenario& scenario() const { return _scenario; }

    /// The scenario if the file has changed since the last call. An unreadable file, which may be
    /// being written, counts as unchanged and is retried.
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
    Stamp _stamp;  ///< Taken before reading, so that no later change is missed.
    Scenario _scenario;
};

}  // namespace SampleGitHub
