#pragma once

#include "Tarnwick/Persistence/DefaultsStore.h"

#include <QString>

#include <memory>
#include <optional>
#include <set>

namespace TarnwickDirect {

/// What the settings hold of updates. Main thread only.
class UpdateSettings {
public:
    /// Requires: a store.
    explicit UpdateSettings(std::shared_ptr<Tarnwick::DefaultsStore> defaults);

    /// When the feed was last looked at.
    std::optional<PullRequestKit::Date> lastCheck() const;
    void setLastCheck(PullRequestKit::Date date);

    /// The version of which the user does not want to hear; empty for none.
    QString skippedVersion() const;
    void setSkippedVersion(const QString& version);

    /// The channels of the feed that the user takes beside the common one.
    std::set<QString> channels() const;

private:
    std::shared_ptr<Tarnwick::DefaultsStore> _defaults;
};

}  // namespace TarnwickDirect
