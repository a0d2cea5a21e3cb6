#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace PullRequestKit {

/// The texts under which an enumeration's cases are stored, in the order of the cases. An
/// enumeration that is written to JSON or to the settings specialises it with one constant:
/// `static constexpr auto names = enumNames<E>({{E::open, "open"}, …});`
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

/// The stored text of a case. Safe from any thread.
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

/// The case stored under exactly this text, or nothing. Safe from any thread.
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

/// Every case, in order. Safe from any thread.
template<NamedEnum E>
constexpr auto allCases()
{
    std::array<E, EnumNames<E>::names.size()> cases{};
    std::ranges::transform(
        EnumNames<E>::names, cases.begin(), [](const auto& pair) { return pair.first; });
    return cases;
}

}  // namespace PullRequestKit
