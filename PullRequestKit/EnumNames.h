#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace PullRequestKit {

/// The stored names of an enumeration's cases, in their order. A stored enumeration specializes it
/// with `static constexpr auto names = enumNames<E>({{E::open, "open"}, …});`. All functions here
/// are safe from any thread.
template<typename E>
struct EnumNames;

template<typename E, std::size_t count>
constexpr std::array<std::pair<E, std::string_view>, count> enumNames(
    const std::pair<E, std::string_view> (&pairs)[count])
{
    return std::to_array(pairs);
}

template<typename E>
concept NamedEnum = requires { EnumNames<E>::names; };

template<NamedEnum E>
constexpr std::string_view nameOf(E value)
{
    for (const auto& [candidate, name] : EnumNames<E>::names) {
        if (candidate == value) {
            return name;
        }
    }
    return {};
}

/// The case with exactly this name, or nothing.
template<NamedEnum E>
constexpr std::optional<E> enumNamed(std::string_view text)
{
    for (const auto& [value, name] : EnumNames<E>::names) {
        if (name == text) {
            return value;
        }
    }
    return std::nullopt;
}

template<NamedEnum E>
constexpr auto allCases()
{
    std::array<E, EnumNames<E>::names.size()> cases{};
    std::ranges::transform(
        EnumNames<E>::names, cases.begin(), [](const auto& pair) { return pair.first; });
    return cases;
}

}  // namespace PullRequestKit
