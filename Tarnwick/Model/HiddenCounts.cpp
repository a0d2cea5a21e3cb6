#include "Tarnwick/Model/HiddenCounts.h"

namespace Tarnwick {

std::string hiddenSentence(const HiddenCounts& hidden)
{
    if (hidden.total() == 0) {
        return {};
    }
    return std::to_string(hidden.filters) + (hidden.filters == 1 ? " is" : " are")
           + " hidden by filters.";
}

}  // namespace Tarnwick
