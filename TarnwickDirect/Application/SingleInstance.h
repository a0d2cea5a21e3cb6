#pragma once

#include "TarnwickDirect/Application/PlatformData.h"
#include "TarnwickDirect/CommandLine/Arguments.h"

#include <QDBusConnection>

namespace TarnwickDirect {

enum class Start {
    first,      ///< This process owns the name.
    forwarded,  ///< A running instance took the request.
};

/// Claims the program's bus name, or forwards the request to the process that owns it. Without a
/// bus every process is the first. Blocks for a few seconds at most. Call once, after the bus
/// object is registered. Throws `std::runtime_error` when the owner does not answer.
Start startOrForward(
    const QDBusConnection& bus, ShowPanel::Manner manner, const PlatformData& platformData);

/// Releases the name. Later messages can no longer reach this process by it. Does not block.
void giveUpName(const QDBusConnection& bus);

}  // namespace TarnwickDirect
