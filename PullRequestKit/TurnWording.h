#pragma once

#include "PullRequestKit/EnumNames.h"
#include "PullRequestKit/Turn.h"

#include <string>
#include <string_view>

namespace PullRequestKit {

/// The English reason without the names that end it, such as "Waiting for " or "Checks failed: ".
/// Empty without a reason. Safe from any thread.
std::string reasonWords(const Turn& turn);

/// The English reason, such as "Waiting for mara, noa-b" or "Merge queue, 2nd"; empty without a
/// reason. Contains untrusted names. Safe from any thread.
std::string reasonText(const Turn& turn);

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
