#include "Tarnwick/Interface/List/RowColors.h"

namespace Tarnwick::RowColors {

using namespace PullRequestKit;

QColor stateColor(const PullRequest& pullRequest)
{
    if (pullRequest.isDraft) {
        return draftGrey;
    }
    switch (pullRequest.state) {
    case PullRequestState::open:
        return green;
    case PullRequestState::closed:
        return red;
    case PullRequestState::merged:
        return purple;
    }
    return draftGrey;
}

QColor reviewColor(ReviewState state, const Palette& palette)
{
    switch (state) {
    case ReviewState::none:
    case ReviewState::pending:
        return palette.textSecondary;
    case ReviewState::approved:
        return green;
    case ReviewState::commented:
        return palette.amber;
    case ReviewState::changesRequested:
        return red;
    }
    return palette.textSecondary;
}

QColor checkColor(const ProgressCount& checks, const Palette& palette)
{
    if (checks.total == 0) {
        return palette.textSecondary;
    }
    if (checks.failed >= 1) {
        return red;
    }
    return checks.completed == checks.total ? green : palette.amber;
}

bool wantsPlate(const QColor& color)
{
    return color == green || color == red;
}

}  // namespace Tarnwick::RowColors
