#pragma once

#include <cstddef>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace PullRequestKit {

/// Sorts names like a file browser, in the user's language: ignoring letter case, with digits
/// compared as numbers (`repo2` before `repo10`). `nameOf` returns an element's name in UTF-8. The
/// sort is stable. Safe from any thread.
template<typename Element, typename NameOf>
void sortByLocalizedName(std::vector<Element>& elements, NameOf nameOf);

namespace Detail {

/// The positions of these names in sorted order.
std::vector<std::size_t> localizedOrder(const std::vector<std::string_view>& names);

}  // namespace Detail

template<typename Element, typename NameOf>
void sortByLocalizedName(std::vector<Element>& elements, NameOf nameOf)
{
    using Name = std::invoke_result_t<NameOf, const Element&>;
    static_assert(
        std::is_lvalue_reference_v<Name> || std::is_same_v<Name, std::string_view>,
        "the name of an element has to live on in the element");
    std::vector<std::string_view> names;
    names.reserve(elements.size());
    for (const Element& element : elements) {
        names.push_back(nameOf(element));
    }
    std::vector<Element> sorted;
    sorted.reserve(elements.size());
    for (const std::size_t place : Detail::localizedOrder(names)) {
        sorted.push_back(std::move(elements[place]));
    }
    elements = std::move(sorted);
}

}  // namespace PullRequestKit
