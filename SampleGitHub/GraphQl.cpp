#include "SampleGitHub/GraphQl.h"

#include "PullRequestKit/Json/Reading.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace SampleGitHub {
namespace {

namespace json = boost::json;

bool isNameCharacter(char character)
{
    return character == '_' || (character >= '0' && character <= '9')
           || (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// The start of the operation's first field: after the first brace outside of parentheses.
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

constexpr std::string_view blanks = " \n\t\r,";

void skipBlanks(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
}

std::string takeName(std::string_view& text)
{
    std::size_t end = 0;
    while (end < text.size() && isNameCharacter(text[end])) {
        ++end;
    }
    std::string name(text.substr(0, end));
    text.remove_prefix(end);
    skipBlanks(text);
    return name;
}

/// Removes and returns the text between the opening and the matching closing character; nothing if
/// the text does not start with the opening one.
std::string_view takeEnclosed(std::string_view& text, char opening, char closing)
{
    if (!text.starts_with(opening)) {
        return {};
    }
    int depth = 0;
    bool isText = false;
    for (std::size_t index = 0; index < text.size(); ++index) {
        isText = isText != (text[index] == '"');
        if (isText) {
            index += text[index] == '\\' ? 1U : 0U;
            continue;
        }
        depth += text[index] == opening ? 1 : 0;
        depth -= text[index] == closing ? 1 : 0;
        if (depth == 0) {
            const std::string_view enclosed = text.substr(1, index - 1);
            text.remove_prefix(index + 1);
            skipBlanks(text);
            return enclosed;
        }
    }
    return std::exchange(text, {});
}

std::string_view argument(std::string_view arguments, std::string_view name)
{
    const std::size_t place = arguments.find(name);
    if (place == std::string_view::npos) {
        return {};
    }
    arguments.remove_prefix(place + name.size());
    skipBlanks(arguments);
    return arguments.substr(0, arguments.find_first_of(" ,)"));
}

GraphQlField takeField(std::string_view& text)
{
    GraphQlField field;
    field.alias = takeName(text);
    field.name = field.alias;
    if (text.starts_with(':')) {
        text.remove_prefix(1);
        skipBlanks(text);
        field.name = takeName(text);
    }
    const std::string_view arguments = takeEnclosed(text, '(', ')');
    field.arguments = arguments;
    field.selection = takeEnclosed(text, '{', '}');
    const std::string_view variable = argument(arguments, "query:");
    field.variable = variable.substr(std::min<std::size_t>(1, variable.size()));
    field.type = argument(arguments, "type:");
    const std::string_view first = argument(arguments, "first:");
    std::int64_t count = 0;
    if (std::from_chars(first.data(), first.data() + first.size(), count).ec == std::errc()) {
        field.first = count;
    }
    return field;
}

}  // namespace

std::vector<GraphQlField> topFields(std::string_view document)
{
    document.remove_prefix(std::min(startOfFirstField(document), document.size()));
    return fieldsOf(document);
}

std::vector<GraphQlField> fieldsOf(std::string_view selection)
{
    std::vector<GraphQlField> fields;
    skipBlanks(selection);
    while (!selection.empty() && isNameCharacter(selection.front())) {
        fields.push_back(takeField(selection));
    }
    return fields;
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
    GraphQlRequest request;
    request.document = readText(*query, path.member("query"));
    request.fields = topFields(request.document);
    if (const json::value* const variables = presentMember(object, "variables")) {
        // A copy, because the document is destroyed.
        request.variables = readObject(*variables, path.member("variables"));
    }
    return request;
}

std::string renderGraphQlError(std::string_view message)
{
    return R"({"errors":[{"message":)" + json::serialize(json::string(message)) + "}]}";
}

}  // namespace SampleGitHub
