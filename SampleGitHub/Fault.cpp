#include "SampleGitHub/Fault.h"

#include <array>
#include <charconv>
#include <stdexcept>

namespace SampleGitHub {
namespace {

using PullRequestKit::enumNamed;

[[noreturn]] void throwInvalid(std::string_view text, const std::string& problem)
{
    throw std::invalid_argument("The fault " + std::string(text) + " " + problem + ".");
}

bool takesValue(FaultKind kind)
{
    return kind == FaultKind::delay || kind == FaultKind::padding || kind == FaultKind::usedUp;
}

/// Removes and returns the text after the last `mark`; nothing without one.
std::optional<std::string_view> takeSuffix(std::string_view& text, char mark)
{
    const std::size_t place = text.rfind(mark);
    if (place == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view suffix = text.substr(place + 1);
    text = text.substr(0, place);
    return suffix;
}

std::optional<std::int64_t> readNumber(std::string_view text)
{
    constexpr std::int64_t largest = 1'000'000'000;
    std::int64_t number = 0;
    const char* const first = text.data();
    const char* const end = first + text.size();
    const auto [rest, error] = std::from_chars(first, end, number);
    const bool isNumber = error == std::errc() && rest == end && number > 0 && number <= largest;
    return isNumber ? std::optional(number) : std::nullopt;
}

/// In the order of the kinds.
constexpr std::array descriptions{
    std::string_view("status 401"),
    std::string_view("status 403 with the text about the rate limit"),
    std::string_view("status 403 with the text about the secondary rate limit"),
    std::string_view("status 500"),
    std::string_view("GraphQL errors beside the data"),
    std::string_view("GraphQL errors and no data"),
    std::string_view("the answer comes after VALUE milliseconds"),
    std::string_view("as rate-limit, and rate_limit says that it ends in VALUE seconds"),
    std::string_view("the connection closes without an answer"),
    std::string_view("the connection closes in the middle of the body"),
    std::string_view("half of the body, declared as the whole"),
    std::string_view("a search page with a next page but no cursor"),
    std::string_view("null for every node or pull request of a search, rules or facts answer"),
    std::string_view("every search hit is an empty object; facts belong to other pull requests"),
    std::string_view("an empty object as the GraphQL answer"),
    std::string_view("no body at all"),
    std::string_view("a body that is not JSON"),
    std::string_view("an invalid UTF-8 byte in the first text"),
    std::string_view("a text in place of a number, or the reverse"),
    std::string_view("lists nested 5,000 deep"),
    std::string_view("VALUE MiB of spaces before the answer"),
};
static_assert(descriptions.size() == PullRequestKit::EnumNames<FaultKind>::names.size());

}  // namespace

Fault parseFault(std::string_view text)
{
    Fault fault;
    std::string_view rest = text;
    if (const auto number = takeSuffix(rest, '#')) {
        fault.nth = readNumber(*number);
        if (!fault.nth) {
            throwInvalid(text, "needs a request number after #");
        }
    }
    if (const auto only = takeSuffix(rest, '@')) {
        fault.only = enumNamed<RequestKind>(*only);
        if (!fault.only) {
            throwInvalid(text, "needs a known kind of request after @");
        }
    }
    const auto value = takeSuffix(rest, '=');
    const auto kind = enumNamed<FaultKind>(rest);
    if (!kind) {
        throwInvalid(text, "is unknown");
    }
    fault.kind = *kind;
    if (value.has_value() != takesValue(*kind)) {
        throwInvalid(text, value ? "takes no value" : "needs a value, such as delay=500");
    }
    if (value) {
        const auto number = readNumber(*value);
        if (!number) {
            throwInvalid(text, "needs a positive whole number as its value");
        }
        fault.value = *number;
    }
    return fault;
}

std::string describeFaults()
{
    constexpr std::size_t column = 16;
    std::string text;
    for (const auto& [kind, name] : PullRequestKit::EnumNames<FaultKind>::names) {
        const std::string label = std::string(name) + (takesValue(kind) ? "=VALUE" : "");
        text += "  " + label + std::string(column - label.size(), ' ');
        text.append(descriptions[static_cast<std::size_t>(kind)]) += "\n";
    }
    return text;
}

}  // namespace SampleGitHub
