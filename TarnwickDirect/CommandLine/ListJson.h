#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <iosfwd>

namespace TarnwickDirect {

/// Writes the list and the model's state as a JSON object and a line feed. Rows are written one at
/// a time to save memory. Texts are unmodified and untrusted.
void writeListJson(
    std::ostream& stream,
    const Tarnwick::PullRequestMenuModel& model,
    const Tarnwick::ArrangedRows& list);

}  // namespace TarnwickDirect
