#include "SampleGitHub/FaultInjection.h"

#include <utility>

namespace SampleGitHub {
namespace {

constexpr std::string_view errorList =
    R"([{"type":"FORBIDDEN","message":"Something went wrong on the first field."},)"
    R"({"message":"Something went wrong on the second field."}])";

bool isGraphQl(RequestKind kind)
{
    return kind == RequestKind::search || kind == RequestKind::rules || kind == RequestKind::facts;
}

/// Where the JSON string that begins at `start` ends: at its closing quotation mark.
std::size_t endOfText(std::string_view text, std::size_t start)
{
    std::size_t index = start + 1;
    while (index < text.size() && text[index] != '"') {
        index += text[index] == '\\' ? 2U : 1U;
    }
    return index;
}

/// Where the JSON value that begins at `start` ends, strings and nesting regarded.
std::size_t endOfValue(std::string_view text, std::size_t start)
{
    int depth = 0;
    for (std::size_t index = start; index < text.size(); ++index) {
        const char character = text[index];
        const bool isEnd = character == '}' || character == ']';
        if (depth == 0 && (isEnd || character == ',')) {
            return index;
        }
        if (character == '"') {
            index = endOfText(text, index);
        } else if (character == '{' || character == '[') {
            ++depth;
        } else if (isEnd) {
            --depth;
        }
    }
    return text.size();
}

/// The list of nodes at the top of an answer, each node replaced.
std::string withNodesReplaced(const std::string& body, std::string_view replacement)
{
    constexpr std::string_view key = R"("nodes":[)";
    const std::size_t found = body.find(key);
    if (found == std::string::npos) {
        return body;
    }
    std::string nodes;
    std::size_t place = found + key.size();
    while (body[place] != ']') {
        nodes += (nodes.empty() ? "" : ",") + std::string(replacement);
        place = endOfValue(body, place);
        place += body[place] == ',' ? 1U : 0U;
    }
    return body.substr(0, found + key.size()) + nodes + body.substr(place);
}

/// Every value of this key replaced.
std::string withValuesReplaced(
    const std::string& body, std::string_view key, std::string_view replacement)
{
    const std::string quotedKey = "\"" + std::string(key) + "\":";
    std::string text;
    std::size_t done = 0;
    for (std::size_t found = body.find(quotedKey); found != std::string::npos;
         found = body.find(quotedKey, done)) {
        const std::size_t start = found + quotedKey.size();
        text += body.substr(done, start - done) + std::string(replacement);
        done = endOfValue(body, start);
    }
    return text + body.substr(done);
}

std::string message(std::string_view text)
{
    return R"({"message":")" + std::string(text) + R"("})";
}

std::string withWrongType(const std::string& body, RequestKind kind)
{
    switch (kind) {
    case RequestKind::search:
        return withValueReplaced(body, "number", R"("seven")");
    case RequestKind::rules:
        return withValueReplaced(body, "id", "7");
    case RequestKind::repositories:
        return withValueReplaced(body, "archived", R"("no")");
    case RequestKind::facts:
        return withValueReplaced(body, "headRefOid", "7");
    case RequestKind::authentication:
        return withValueReplaced(body, "login", "7");
    case RequestKind::other:
        break;
    }
    return body;
}

std::string withBadByte(const std::string& body, RequestKind kind)
{
    switch (kind) {
    case RequestKind::search:
        return withValueReplaced(body, "title", "\"\xFF\"");
    case RequestKind::rules:
        return withValueReplaced(body, "id", "\"\xFF\"");
    case RequestKind::repositories:
        return withValueReplaced(body, "language", "\"\xFF\"");
    case RequestKind::facts:
        return withValueReplaced(body, "headRefOid", "\"\xFF\"");
    case RequestKind::authentication:
        return withValueReplaced(body, "login", "\"\xFF\"");
    case RequestKind::other:
        break;
    }
    return body;
}

/// What `rate_limit` says of a limit: nothing remains.
std::string withNothingRemaining(const std::string& body, std::int64_t seconds)
{
    const auto now = std::chrono::system_clock::now() + std::chrono::seconds(seconds);
    const std::string reset = std::to_string(std::chrono::system_clock::to_time_t(now));
    std::string text;
    std::string rest = body;
    constexpr std::string_view key = R"("remaining":)";
    for (auto found = rest.find(key); found != std::string::npos; found = rest.find(key)) {
        rest = withValueReplaced(withValueReplaced(rest, "remaining", "0"), "reset", reset);
        const std::size_t end = rest.find('}', found);
        text += rest.substr(0, end);
        rest.erase(0, end);
    }
    return text + rest;
}

bool isRateLimit(const Response& response)
{
    return response.status == 200 && response.body.starts_with(R"({"resources":)");
}

void answerStatus(Response& response, int status, std::string_view text)
{
    response.status = status;
    response.body = message(text);
    response.headers.erase("Link");
}

/// Faults of the connection and of the status line, which strike any request.
bool applyToTransport(Delivery& delivery, const Fault& fault)
{
    Response& response = delivery.response;
    switch (fault.kind) {
    case FaultKind::unauthorized:
        answerStatus(response, 401, "Bad credentials");
        return true;
    case FaultKind::rateLimit:
        answerStatus(response, 403, "API rate limit exceeded for user ID 583231.");
        response.headers["X-RateLimit-Remaining"] = "0";
        return true;
    case FaultKind::secondaryLimit:
        answerStatus(
            response,
            403,
            "You have exceeded a secondary rate limit. Please wait a few minutes before you try "
            "again.");
        return true;
    case FaultKind::usedUp:
        if (isRateLimit(response)) {
            response.body = withNothingRemaining(response.body, fault.value);
        } else {
            answerStatus(response, 403, "API rate limit exceeded for user ID 583231.");
        }
        return true;
    case FaultKind::hangUp:
        delivery.isHungUp = true;
        return true;
    case FaultKind::serverError:
        answerStatus(response, 500, "Internal Server Error");
        return true;
    case FaultKind::delay:
        delivery.delay += std::chrono::milliseconds(fault.value);
        return true;
    case FaultKind::cutOff:
        delivery.cutOffAt = response.body.size() / 2;
        return true;
    case FaultKind::errors:
    case FaultKind::errorsOnly:
    case FaultKind::truncated:
    case FaultKind::noCursor:
    case FaultKind::nullNodes:
    case FaultKind::foreignNodes:
    case FaultKind::missingData:
    case FaultKind::emptyBody:
    case FaultKind::notJson:
    case FaultKind::notUtf8:
    case FaultKind::wrongType:
    case FaultKind::deep:
    case FaultKind::padding:
        break;
    }
    return false;
}

/// Faults of what GraphQL answers say, which leave other answers alone.
bool applyToGraphQl(std::string& body, RequestKind kind, FaultKind fault)
{
    const bool isSearch = kind == RequestKind::search;
    if (fault == FaultKind::errors && isGraphQl(kind)) {
        body.insert(body.size() - 1, R"(,"errors":)" + std::string(errorList));
    } else if (fault == FaultKind::errorsOnly && isGraphQl(kind)) {
        body = R"({"errors":)" + std::string(errorList) + "}";
    } else if (fault == FaultKind::missingData && isGraphQl(kind)) {
        body = "{}";
    } else if (fault == FaultKind::nullNodes && kind == RequestKind::facts) {
        body = withValuesReplaced(body, "pullRequest", "null");
    } else if (fault == FaultKind::foreignNodes && kind == RequestKind::facts) {
        body = withValuesReplaced(body, "nameWithOwner", R"("somebody/else")");
    } else if (fault == FaultKind::nullNodes && isGraphQl(kind)) {
        body = withNodesReplaced(body, "null");
    } else if (fault == FaultKind::foreignNodes && isSearch) {
        body = withNodesReplaced(body, "{}");
    } else if (fault == FaultKind::noCursor && isSearch) {
        body = withValueReplaced(body, "hasNextPage", "true");
        body = withValueReplaced(body, "endCursor", "null");
    } else {
        return false;
    }
    return true;
}

void applyToBody(std::string& body, RequestKind kind, const Fault& fault)
{
    constexpr std::size_t depth = 5000;
    constexpr std::size_t mebibyte = std::size_t{1} << 20U;
    if (fault.kind == FaultKind::truncated) {
        body.resize(body.size() / 2);
    } else if (fault.kind == FaultKind::emptyBody) {
        body.clear();
    } else if (fault.kind == FaultKind::notJson) {
        body = "<html>We are having a problem.</html>";
    } else if (fault.kind == FaultKind::notUtf8) {
        body = withBadByte(body, kind);
    } else if (fault.kind == FaultKind::wrongType) {
        body = withWrongType(body, kind);
    } else if (fault.kind == FaultKind::deep) {
        const std::string lists = std::string(depth, '[') + std::string(depth, ']');
        body = isGraphQl(kind) ? R"({"data":)" + lists + "}" : lists;
    } else if (fault.kind == FaultKind::padding) {
        body.insert(0, static_cast<std::size_t>(fault.value) * mebibyte, ' ');
    }
}

}  // namespace

std::string withValueReplaced(
    const std::string& text, std::string_view key, std::string_view replacement)
{
    const std::string quotedKey = "\"" + std::string(key) + "\":";
    const std::size_t found = text.find(quotedKey);
    if (found == std::string::npos) {
        return text;
    }
    const std::size_t start = found + quotedKey.size();
    return text.substr(0, start) + std::string(replacement) + text.substr(endOfValue(text, start));
}

FaultInjection::FaultInjection(const std::vector<Fault>& faults)
{
    for (const Fault& fault : faults) {
        _faults.push_back({fault, 0});
    }
}

Delivery FaultInjection::apply(Answer answer)
{
    Delivery delivery{std::move(answer.response), {}, {}, false};
    for (Armed& armed : _faults) {
        const Fault& fault = armed.fault;
        if (fault.only && *fault.only != answer.kind) {
            continue;
        }
        ++armed.seen;
        if (fault.nth && *fault.nth != armed.seen) {
            continue;
        }
        std::string& body = delivery.response.body;
        if (!applyToTransport(delivery, fault) && !applyToGraphQl(body, answer.kind, fault.kind)) {
            applyToBody(body, answer.kind, fault);
        }
    }
    return delivery;
}

}  // namespace SampleGitHub
