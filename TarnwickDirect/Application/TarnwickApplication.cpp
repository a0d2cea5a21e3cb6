#include "TarnwickDirect/Application/TarnwickApplication.h"

#include "Tarnwick/Interface/Style/AppFonts.h"

namespace TarnwickDirect::TarnwickApplication {

void initialize()
{
    Tarnwick::AppFonts::registerBundledFonts();
}

}  // namespace TarnwickDirect::TarnwickApplication
