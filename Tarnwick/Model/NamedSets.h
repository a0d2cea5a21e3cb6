#pragma once

#include "PullRequestKit/EnumNames.h"

#include <set>
#include <string>

namespace Tarnwick {

/// Every case of an enumeration.
template<PullRequestKit::NamedEnum E>
std::set<E> everyCase()
{
    const auto cases = PullRequestKit::allCases<E>();
    return {cases.begin(), cases.end()};
}

/// The stored texts of these cases. A set of texts is in ascending order, which is the order in
/// which the settings store them.
template<PullRequestKit::NamedEnum E>
std::set<std::string> textsOf(const std::set<E>& values)
{
    std::set<std::string> texts;
    for (const E value : values) {
        texts.emplace(PullRequestKit::nameOf(value));
    }
    return texts;
}

/// The cases stored under these texts; other texts are left out.
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
