#pragma once

#include <functional>
#include <vector>

namespace TestSupport {

/// What a member or a function is for each element, in order.
template<typename Range, typename Projection>
auto mapped(const Range& range, Projection projection)
{
    std::vector<std::decay_t<std::invoke_result_t<Projection, decltype(*range.begin())>>> results;
    for (const auto& element : range) {
        results.push_back(std::invoke(projection, element));
    }
    return results;
}

}  // namespace TestSupport
