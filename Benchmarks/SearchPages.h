#pragma once

#include <string>

namespace Benchmarks {

/// An answer of the search as GitHub gives it for busy repositories: 50 pull requests, each with
/// 100 checks, about 1.6 MB. Always the same text.
std::string searchPage();

}  // namespace Benchmarks
