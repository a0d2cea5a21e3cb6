#pragma once

#include <string_view>

namespace TarnwickDirect {

/// The program's version, such as "0.2.0", as the root CMake file states it. Safe from any thread.
std::string_view version();

}  // namespace TarnwickDirect
