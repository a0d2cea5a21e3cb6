#pragma once

#include <string_view>

namespace TarnwickDirect {

/// The program's version, such as "0.2.0". Safe from any thread.
std::string_view version();

}  // namespace TarnwickDirect
