#include "TarnwickDirect/Version.h"

namespace TarnwickDirect {

std::string_view version()
{
    return TARNWICK_VERSION;
}

}  // namespace TarnwickDirect
