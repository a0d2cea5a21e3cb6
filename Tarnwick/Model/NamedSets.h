#pragma once

#include "PullRequestKit/EnumNames.h"

#include <set>
#include <string>

namespace Tarnwick {

template<PullRequestKit::NamedEnum E>
std::set<E> everyCase()
{
    const auto cases = PullRequestKit::allCases<E>();
    return {cases.begin(), cases.end()};
}

/// The stored names, in ascending order as in the settings file.
template<PullRequestKit::NamedEnum E>
std::set<std::string> textsOf(const std::set<E>& values)
{
    std::set<std::string> texts;
    for (const E value : values) {
        texts.emplace(PullRequestKit::nameOf(value));
    }
    return texts;
}

/// The cases with these names; other texts are ignored.
template<PullRequestKit::NamedEnum E, typename Texts>
std::set<E> casesNamed(const Texts& texts)
{
    std::set<E> values;
    for (const auto& text : texts) {
        if (const auto value = PullRequestKit::enumNamed<E>(text)) {
            values.insert(*value);
        }
    }
    return values;
}

}  // namespace Tarnwick
