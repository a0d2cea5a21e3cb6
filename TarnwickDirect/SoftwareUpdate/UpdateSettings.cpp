#include "TarnwickDirect/SoftwareUpdate/UpdateSettings.h"

#include <string_view>
#include <utility>

namespace TarnwickDirect {
namespace {

// Stored: do not rename.
constexpr std::string_view lastCheckKey = "updates.lastCheck";
constexpr std::string_view skippedVersionKey = "updates.skippedVersion";
constexpr std::string_view channelsKey = "updates.channels";

}  // namespace

UpdateSettings::UpdateSettings(std::shared_ptr<Tarnwick::DefaultsStore> defaults)
    : _defaults(std::move(defaults))
{}

std::optional<PullRequestKit::Date> UpdateSettings::lastCheck() const
{
    return Tarnwick::readDate(*_defaults, lastCheckKey);
}

void UpdateSettings::setLastCheck(PullRequestKit::Date date)
{
    Tarnwick::writeDate(*_defaults, lastCheckKey, date);
}

QString UpdateSettings::skippedVersion() const
{
    return QString::fromStdString(Tarnwick::readText(*_defaults, skippedVersionKey).value_or(""));
}

void UpdateSettings::setSkippedVersion(const QString& version)
{
    Tarnwick::writeText(*_defaults, skippedVersionKey, version.toStdString());
}

std::set<QString> UpdateSettings::channels() const
{
    std::set<QString> channels;
    const auto names = Tarnwick::readTextList(*_defaults, channelsKey);
    for (const std::string& name : names.value_or(std::vector<std::string>{})) {
        channels.insert(QString::fromStdString(name));
    }
    return channels;
}

}  // namespace TarnwickDirect
