#pragma once

#include "Tarnwick/PullRequestMenuModel.h"
#include "TarnwickDirect/CommandLine/ShownList.h"

#include <iosfwd>

namespace TarnwickDirect {

/// Writes the list, and what the model tells beside it, as one JSON object and a line feed. Rows
/// are written one at a time, so that a long list takes little memory. Texts are other people's, as
/// they are.
void writeListJson(
    std::ostream& stream, const Tarnwick::PullRequestMenuModel& model, const ShownList& list);

}  // namespace TarnwickDirect
