#include "TarnwickDirect/Application/TarnwickApplication.h"

#include "Tarnwick/Interface/Look/AppFonts.h"

namespace TarnwickDirect::TarnwickApplication {

void initialize()
{
    Tarnwick::AppFonts::registerBundledFonts();
}

}  // namespace TarnwickDirect::TarnwickApplication
