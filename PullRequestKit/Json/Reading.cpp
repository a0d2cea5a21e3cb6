#include "PullRequestKit/Json/Reading.h"

#include <algorithm>

namespace PullRequestKit::Json {
namespace {

constexpr std::size_t smallestBlock = 4096;

boost::json::value parse(std::string_view text, boost::json::storage_ptr memory)
{
    // `reset` sets the memory of the values; the constructor's is for intermediate results.
    boost::json::parser parser;
    parser.reset(std::move(memory));
    boost::json::error_code error;
    const std::size_t consumed = parser.write(text.data(), text.size(), error);
    if (error) {
        throw DecodingError(
            {}, "is not JSON (byte " + std::to_string(consumed) + ": " + error.message() + ")");
    }
    return parser.release();
}

}  // namespace

void throwDecodingError(const Path& path, const char* problem)
{
    throw DecodingError(path.text(), problem);
}

bool readBool(const boost::json::value& value, const Path& path)
{
    if (!value.is_bool()) {
        throwDecodingError(path, "is not true or false");
    }
    return value.get_bool();
}

std::int64_t readInteger(const boost::json::value& value, const Path& path)
{
    if (!value.is_int64()) {
        throwDecodingError(path, "is not a whole number");
    }
    return value.get_int64();
}

std::string_view readTextView(const boost::json::value& value, const Path& path)
{
    if (!value.is_string()) {
        throwDecodingError(path, "is not text");
    }
    return value.get_string();
}

std::string readText(const boost::json::value& value, const Path& path)
{
    return std::string(readTextView(value, path));
}

Date readDate(const boost::json::value& value, const Path& path)
{
    const auto date = parseDate(readTextView(value, path));
    if (!date) {
        throwDecodingError(path, "is not an ISO 8601 date");
    }
    return *date;
}

Url readUrl(const boost::json::value& value, const Path& path)
{
    auto url = parseUrl(readTextView(value, path));
    if (!url) {
        throwDecodingError(path, "is not a web address");
    }
    return *std::move(url);
}

const boost::json::object& readObject(const boost::json::value& value, const Path& path)
{
    if (!value.is_object()) {
        throwDecodingError(path, "is not an object");
    }
    return value.get_object();
}

const boost::json::array& readList(const boost::json::value& value, const Path& path)
{
    if (!value.is_array()) {
        throwDecodingError(path, "is not a list");
    }
    return value.get_array();
}

const boost::json::value* presentMember(const boost::json::object& object, std::string_view key)
{
    const boost::json::value* const member = object.if_contains(key);
    return member != nullptr && !member->is_null() ? member : nullptr;
}

Document::Document(std::string_view text)
    : _memory(std::max(text.size(), smallestBlock))
    , _root(parse(text, &_memory))
{}

}  // namespace PullRequestKit::Json
