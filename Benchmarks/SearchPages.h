#pragma once

#include <string>

namespace Benchmarks {

/// GitHub's answer to a search in busy repositories: 50 pull requests with 100 checks each, about
/// 1.6 MB. Deterministic.
std::string searchPage();

}  // namespace Benchmarks
