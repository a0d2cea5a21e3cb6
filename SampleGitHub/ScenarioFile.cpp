#include "SampleGitHub/ScenarioFile.h"

#include <stdexcept>
#include <system_error>
#include <utility>

namespace SampleGitHub {

ScenarioFile::ScenarioFile(std::string nameOrFile, std::optional<std::string> login)
    : _nameOrFile(std::move(nameOrFile))
    , _login(std::move(login))
    , _stamp(stamp())
    , _scenario(load())
{}

Scenario ScenarioFile::load() const
{
    Scenario scenario = loadScenario(_nameOrFile);
    if (_login) {
        signIn(scenario, *_login);
    }
    return scenario;
}

ScenarioFile::Stamp ScenarioFile::stamp() const
{
    const std::filesystem::path file = scenarioFile(_nameOrFile);
    std::error_code ignored;
    return {
        std::filesystem::last_write_time(file, ignored), std::filesystem::file_size(file, ignored)};
}

std::optional<Scenario> ScenarioFile::changed()
{
    const Stamp now = stamp();
    if (now == _stamp) {
        return std::nullopt;
    }
    try {
        _scenario = load();
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
    _stamp = now;
    return _scenario;
}

}  // namespace SampleGitHub
