#pragma once

#include "PullRequestKit/EnumNames.h"
#include "PullRequestKit/Turn.h"

#include <string>
#include <string_view>

namespace PullRequestKit {

/// What of the reason's English text stands in front of `Turn::names`, which always end it: such as
/// "Waiting for " or "Checks failed: "; where there are no names, all of it. Empty where there is
/// no reason. Safe from any thread.
std::string reasonWords(const Turn& turn);

/// The reason in English, such as "Waiting for mara, noa-b" or "Merge queue, 2nd"; empty where
/// there is none. The names are other people's texts, as they are. Safe from any thread.
std::string reasonText(const Turn& turn);

/// The heading above the pull requests that wait for the same.
std::string_view headingOf(Whose whose);

template<>
struct EnumNames<Whose> {
    static constexpr auto names = enumNames<Whose>({
        {Whose::you, "you"},
        {Whose::ready, "ready"},
        {Whose::teams, "teams"},
        {Whose::others, "others"},
    });
};

}  // namespace PullRequestKit
