#pragma once

#include "Tarnwick/Interface/List/RowContent.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <vector>

namespace Tarnwick {

enum class HiddenRows {
    areLeftOut,
    areDimmed,
};

/// The model's rows with everything they show. They stay valid when the model changes. Main thread
/// only.
std::vector<ListedRow> listedRows(const PullRequestMenuModel& model, HiddenRows hidden);

}  // namespace Tarnwick
