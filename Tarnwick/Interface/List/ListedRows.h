#pragma once

#include "Tarnwick/Interface/List/RowContent.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <vector>

namespace Tarnwick {

enum class HiddenRows {
    areLeftOut,
    areDimmed,
};

/// What the model has to list, with all that the rows of the list tell. They keep what they are
/// made of, also when the model has other rows. Main thread only.
std::vector<ListedRow> listedRows(const PullRequestMenuModel& model, HiddenRows hidden);

}  // namespace Tarnwick
