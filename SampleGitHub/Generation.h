#pragma once

#include "SampleGitHub/Scenario.h"

namespace SampleGitHub {

/// Adds the repositories and pull requests of `scenario.generated`. Deterministic. A pull request
/// with a hundred checks takes about 32 kB. Counts below 1 add nothing.
void generate(Scenario& scenario);

}  // namespace SampleGitHub
