#include "TarnwickDirect/Application/HeadStart.h"

#include "Tarnwick/StandardCollaborators.h"

#include <fontconfig/fontconfig.h>

namespace TarnwickDirect {

HeadStart::HeadStart()
    : _readAhead(std::make_shared<Tarnwick::ReadAhead>(
          &Tarnwick::openStandardDefaults, Tarnwick::PullRequestDiskCache{}))
    // Qt asks for the same on the main thread, and finds it done.
    , _fonts(std::async(std::launch::async, [] { FcInit(); }))
{}

void HeadStart::waitForFonts()
{
    _fonts.wait();
}

}  // namespace TarnwickDirect
