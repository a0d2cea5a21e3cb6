#pragma once

#include <string>

namespace TestSupport {

/// The texts in their order, with ", " between them.
template<typename Texts>
std::string joined(const Texts& texts)
{
    std::string all;
    for (const auto& text : texts) {
        all += (all.empty() ? "" : ", ") + text;
    }
    return all;
}

}  // namespace TestSupport
