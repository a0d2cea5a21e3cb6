#include "SampleGitHub/Paging.h"

#include "SampleGitHub/Base64.h"

#include <algorithm>
#include <charconv>

namespace SampleGitHub {
namespace {

constexpr std::int64_t largestCursor = 1000;  // GitHub's search returns no further results.

}  // namespace

std::string cursorBehind(std::int64_t count)
{
    return encodeBase64("cursor:" + std::to_string(count));
}

std::optional<std::int64_t> resultsBefore(std::string_view cursor)
{
    for (std::int64_t count = 1; count <= largestCursor; ++count) {
        if (cursorBehind(count) == cursor) {
            return count;
        }
    }
    return std::nullopt;
}

std::map<std::string, std::string> queryParameters(std::string_view query)
{
    std::map<std::string, std::string> parameters;
    while (!query.empty()) {
        const std::string_view parameter = query.substr(0, query.find('&'));
        const std::size_t equals = std::min(parameter.find('='), parameter.size());
        const std::string_view value = parameter.substr(std::min(equals + 1, parameter.size()));
        parameters[std::string(parameter.substr(0, equals))] = value;
        query.remove_prefix(std::min(parameter.size() + 1, query.size()));
    }
    return parameters;
}

std::int64_t positiveParameter(
    const std::map<std::string, std::string>& parameters,
    const std::string& name,
    std::int64_t fallback)
{
    const auto found = parameters.find(name);
    if (found == parameters.end()) {
        return fallback;
    }
    constexpr std::int64_t largest = 1'000'000;
    const std::string& text = found->second;
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber && number > 0 ? std::min(number, largest) : fallback;
}

std::string linkHeader(
    std::string_view address,
    std::map<std::string, std::string> parameters,
    std::int64_t page,
    std::int64_t pageCount)
{
    std::string header;
    const auto add = [&](std::int64_t target, std::string_view relation) {
        parameters["page"] = std::to_string(target);
        std::string query;
        for (const auto& [name, value] : parameters) {
            query.append(query.empty() ? "?" : "&").append(name).append("=").append(value);
        }
        header += (header.empty() ? "<" : ", <") + std::string(address) + query + ">; rel=\""
                  + std::string(relation) + "\"";
    };
    if (page > 1) {
        add(page - 1, "prev");
    }
    if (page < pageCount) {
        add(page + 1, "next");
        add(pageCount, "last");
    }
    if (page > 1) {
        add(1, "first");
    }
    return header;
}

}  // namespace SampleGitHub
