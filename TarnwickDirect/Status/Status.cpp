#include "TarnwickDirect/Status/Status.h"

#include <algorithm>

namespace TarnwickDirect {

using namespace PullRequestKit;

Status countedStatus(std::span<const PullRequestRow> rows, std::span<const Turn> turns)
{
    const auto count = [&](Whose whose) {
        return static_cast<std::uint32_t>(std::ranges::count(turns, whose, &Turn::whose));
    };
    Status status;
    status.waitingOnYou = count(Whose::you);
    status.readyToMerge = count(Whose::ready);
    status.listed = static_cast<std::uint32_t>(rows.size());
    status.blocked = static_cast<std::uint32_t>(std::ranges::count_if(
        rows, [](const PullRequestRow& row) { return row.pullRequest.isBlocked(); }));
    return status;
}

}  // namespace TarnwickDirect
