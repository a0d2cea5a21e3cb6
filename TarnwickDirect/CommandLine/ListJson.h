#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <iosfwd>

namespace TarnwickDirect {

/// Writes what the model shows as one JSON object and a line feed. Rows are written one at a time,
/// so that a long list takes little memory.
void writeListJson(std::ostream& stream, Tarnwick::PullRequestMenuModel& model);

}  // namespace TarnwickDirect
