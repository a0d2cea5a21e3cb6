#pragma once

#include "GitHubProvider/GhDiscovery.h"
#include "TarnwickDirect/SoftwareUpdate/AppcastUpdater.h"

namespace TarnwickDirect {

/// An updater of this program, as it runs on this system, that has started. Downloads go to
/// `dev.tarnwick.Tarnwick/updates` in the user's cache folder, fetched by the module that
/// belongs to the program. Main thread only. Requires: the store and the clock are there, and the
/// delegate lives longer.
std::unique_ptr<AppcastUpdater> standardUpdater(
    const UpdateSource& source,
    const QString& ownVersion,
    const GitHub::Environment& environment,
    std::shared_ptr<Tarnwick::DefaultsStore> defaults,
    std::shared_ptr<Tarnwick::Clock> clock,
    UpdaterDelegate& delegate);

}  // namespace TarnwickDirect
