#pragma once

#include "TarnwickDirect/Application/PlatformData.h"
#include "TarnwickDirect/CommandLine/Arguments.h"

#include <QDBusConnection>

namespace TarnwickDirect {

/// How a start of the program goes on.
enum class Start {
    first,      ///< This process is the one that others will find.
    forwarded,  ///< Another one runs and has been told what was asked for.
};

/// Takes the program's name on the bus, or has the process that holds it do what was asked for.
/// Where there is no bus, every start is the first. Blocks, for a few seconds at most: to be called
/// once, at the start, when the object that answers is registered already. Throws
/// `std::runtime_error` when another process holds the name and does not answer.
Start startOrForward(
    const QDBusConnection& bus, ShowPanel::Manner manner, const PlatformData& platformData);

/// Lets another process have the name. The bus does so before it passes on anything that is sent
/// later. Waits for nothing.
void giveUpName(const QDBusConnection& bus);

}  // namespace TarnwickDirect
