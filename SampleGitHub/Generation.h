#pragma once

#include "SampleGitHub/Scenario.h"

namespace SampleGitHub {

/// Adds the repositories and pull requests that `scenario.generated` asks for. Everything follows
/// from these counts, so that two runs give the same. A hundred checks make a pull request of about
/// 32 kB. Counts of 0 and less add nothing.
void generate(Scenario& scenario);

}  // namespace SampleGitHub
