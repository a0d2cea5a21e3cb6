#pragma once

#include "Tarnwick/Async/Clock.h"
#include "Tarnwick/Persistence/DefaultsStore.h"
#include "TarnwickDirect/SoftwareUpdate/UpdaterController.h"
#include "TarnwickDirect/SoftwareUpdate/UpdaterDelegate.h"

#include <filesystem>
#include <functional>
#include <memory>

class QWidget;

namespace TarnwickDirect {

/// What an updater has of the program around it. All are there. Main thread only.
struct UpdaterHost {
    std::shared_ptr<Tarnwick::DefaultsStore> defaults;
    std::shared_ptr<Tarnwick::Clock> clock;

    /// Shows a window in front of the others, with the focus, because the user asked for it.
    std::function<void(QWidget&)> bringToFront;

    /// A window of the updater that had the focus is gone.
    std::function<void()> takeFocusBack;

    /// Ends the program and starts the one in this file in its place.
    std::function<void(const std::filesystem::path&)> restart;
};

/// Makes an updater that has started. The host and the delegate live longer than it.
using MakeUpdater =
    std::function<std::unique_ptr<UpdaterController>(const UpdaterHost&, UpdaterDelegate&)>;

}  // namespace TarnwickDirect
