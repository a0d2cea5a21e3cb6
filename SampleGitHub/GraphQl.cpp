#include "SampleGitHub/GraphQl.h"

#include "PullRequestKit/Json/Reading.h"

#include <charconv>

namespace SampleGitHub {
namespace {

namespace json = boost::json;

bool isNameCharacter(char character)
{
    return character == '_' || (character >= '0' && character <= '9')
           || (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// Where the first field of the operation begins: behind the brace that no parenthesis encloses.
std::size_t startOfFirstField(std::string_view document)
{
    int depth = 0;
    for (std::size_t index = 0; index < document.size(); ++index) {
        if (document[index] == '(') {
            ++depth;
        } else if (document[index] == ')') {
            --depth;
        } else if (document[index] == '{' && depth == 0) {
            return document.find_first_not_of(" \n\t\r,", index + 1);
        }
    }
    return std::string_view::npos;
}

std::optional<std::int64_t> firstArgument(std::string_view document)
{
    const std::size_t start = startOfFirstField(document);
    if (start == std::string_view::npos) {
        return std::nullopt;
    }
    std::string_view arguments = document.substr(start);
    arguments = arguments.substr(0, arguments.find_first_of("){"));
    constexpr std::string_view name = "first:";
    const std::size_t place = arguments.find(name);
    if (place == std::string_view::npos) {
        return std::nullopt;
    }
    arguments.remove_prefix(place + name.size());
    while (arguments.starts_with(' ')) {
        arguments.remove_prefix(1);
    }
    std::int64_t count = 0;
    const auto end = arguments.data() + arguments.size();
    const bool isNumber = std::from_chars(arguments.data(), end, count).ec == std::errc();
    return isNumber ? std::optional(count) : std::nullopt;
}

}  // namespace

std::string firstField(std::string_view document)
{
    const std::size_t start = startOfFirstField(document);
    if (start == std::string_view::npos) {
        return {};
    }
    std::size_t end = start;
    while (end < document.size() && isNameCharacter(document[end])) {
        ++end;
    }
    return std::string(document.substr(start, end - start));
}

GraphQlRequest parseGraphQlRequest(std::string_view body)
{
    using namespace PullRequestKit::Json;
    const Document document(body);
    const Path path;
    const json::object& object = readObject(document.root(), path);
    const json::value* const query = presentMember(object, "query");
    if (query == nullptr) {
        throwDecodingError(path.member("query"), "is missing");
    }
    const std::string text = readText(*query, path.member("query"));
    GraphQlRequest request{firstField(text), firstArgument(text), {}};
    if (const json::value* const variables = presentMember(object, "variables")) {
        // A copy, because the document's memory goes away.
        request.variables = readObject(*variables, path.member("variables"));
    }
    return request;
}

std::string renderGraphQlError(std::string_view message)
{
    return R"({"errors":[{"message":)" + json::serialize(json::string(message)) + "}]}";
}

}  // namespace SampleGitHub
