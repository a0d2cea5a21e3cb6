#pragma once

#include "Tarnwick/Interface/List/RowContent.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <vector>

namespace Tarnwick {

enum class HiddenRows {
    areLeftOut,
    areDimmed,
};

/// The model's rows, valid even after the model changes. Main thread only.
std::vector<ListedRow> listedRows(const PullRequestMenuModel& model, HiddenRows hidden);

}  // namespace Tarnwick
