#include "Tarnwick/Model/HiddenCounts.h"

namespace Tarnwick {
namespace {

std::string numberOf(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " is " : " are ");
}

}  // namespace

std::string hiddenSentence(const HiddenCounts& hidden)
{
    std::string sentence;
    if (hidden.filters > 0) {
        sentence = numberOf(hidden.filters) + "hidden by filters";
    }
    if (hidden.muted > 0) {
        sentence += (sentence.empty() ? "" : ", ") + numberOf(hidden.muted) + "muted";
    }
    return sentence.empty() ? sentence : sentence + ".";
}

}  // namespace Tarnwick
