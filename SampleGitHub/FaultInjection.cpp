#include "SampleGitHub/FaultInjection.h"

#include <algorithm>
#include <boost/json.hpp>
#include <utility>

namespace SampleGitHub {
namespace {

namespace json = boost::json;

constexpr std::string_view errorList =
    R"([{"type":"FORBIDDEN","message":"Something went wrong on the first field."},)"
    R"({"message":"Something went wrong on the second field."}])";

constexpr std::string_view limitText = "API rate limit exceeded for user ID 583231.";
constexpr std::string_view secondaryLimitText =
    "You have exceeded a secondary rate limit. Please wait a few minutes before you try again.";

bool isGraphQl(RequestKind kind)
{
    return kind == RequestKind::search || kind == RequestKind::rules || kind == RequestKind::facts;
}

/// Finds all members of this name at any depth, in document order.
void addMembers(std::vector<json::value*>& found, json::value& value, std::string_view name)
{
    if (json::array* const array = value.if_array()) {
        for (json::value& element : *array) {
            addMembers(found, element, name);
        }
    } else if (json::object* const object = value.if_object()) {
        for (auto& [key, member] : *object) {
            if (key == name) {
                found.push_back(&member);
            } else {
                addMembers(found, member, name);
            }
        }
    }
}

std::vector<json::value*> membersNamed(json::value& value, std::string_view name)
{
    std::vector<json::value*> found;
    addMembers(found, value, name);
    return found;
}

void replaceFirst(json::value& value, std::string_view name, const json::value& replacement)
{
    const auto members = membersNamed(value, name);
    if (!members.empty()) {
        *members.front() = replacement;
    }
}

void replaceEach(json::value& value, std::string_view name, const json::value& replacement)
{
    for (json::value* const member : membersNamed(value, name)) {
        *member = replacement;
    }
}

void replaceNodes(json::value& value, const json::value& replacement)
{
    const auto lists = membersNamed(value, "nodes");
    if (!lists.empty()) {
        std::ranges::fill(lists.front()->as_array(), replacement);
    }
}

/// The members that faults of a single value change.
struct SpoiltMembers {
    std::string_view text;   ///< Gets a byte that is not UTF-8.
    std::string_view typed;  ///< Gets a value of another type.
};

SpoiltMembers spoiltMembers(RequestKind kind)
{
    switch (kind) {
    case RequestKind::search:
        return {"title", "number"};
    case RequestKind::rules:
        return {"id", "id"};
    case RequestKind::repositories:
        return {"language", "archived"};
    case RequestKind::facts:
        return {"headRefOid", "headRefOid"};
    case RequestKind::authentication:
        return {"login", "login"};
    case RequestKind::other:
        break;
    }
    return {};
}

void useUp(json::value& limits, std::int64_t seconds)
{
    const auto end = std::chrono::system_clock::now() + std::chrono::seconds(seconds);
    replaceEach(limits, "remaining", 0);
    replaceEach(limits, "reset", std::chrono::system_clock::to_time_t(end));
}

/// Edits a JSON body; any other body is left unchanged.
template<typename Edit>
void editJson(std::string& body, const Edit& edit)
{
    json::error_code error;
    json::value value = json::parse(body, error);
    if (!error) {
        edit(value);
        body = json::serialize(value);
    }
}

bool isRateLimit(const Response& response)
{
    return response.status == 200 && response.body.starts_with(R"({"resources":)");
}

void answerStatus(Response& response, int status, std::string_view text)
{
    response.status = status;
    response.body = json::serialize(json::object{{"message", text}});
    response.headers.erase("Link");
}

bool applyToTransport(Delivery& delivery, const Fault& fault)
{
    Response& response = delivery.response;
    if (fault.kind == FaultKind::unauthorized) {
        answerStatus(response, 401, "Bad credentials");
    } else if (fault.kind == FaultKind::rateLimit) {
        answerStatus(response, 403, limitText);
        response.headers["X-RateLimit-Remaining"] = "0";
    } else if (fault.kind == FaultKind::secondaryLimit) {
        answerStatus(response, 403, secondaryLimitText);
    } else if (fault.kind == FaultKind::usedUp && isRateLimit(response)) {
        editJson(response.body, [&](json::value& limits) { useUp(limits, fault.value); });
    } else if (fault.kind == FaultKind::usedUp) {
        answerStatus(response, 403, limitText);
    } else if (fault.kind == FaultKind::serverError) {
        answerStatus(response, 500, "Internal Server Error");
    } else if (fault.kind == FaultKind::hangUp) {
        delivery.isHungUp = true;
    } else if (fault.kind == FaultKind::delay) {
        delivery.delay += std::chrono::milliseconds(fault.value);
    } else if (fault.kind == FaultKind::cutOff) {
        delivery.cutOffAt = response.body.size() / 2;
    } else {
        return false;
    }
    return true;
}

void applyToGraphQl(json::value& answer, RequestKind kind, FaultKind fault)
{
    const bool isSearch = kind == RequestKind::search;
    const bool isFacts = kind == RequestKind::facts;
    if (fault == FaultKind::errors) {
        answer.as_object()["errors"] = json::parse(errorList);
    } else if (fault == FaultKind::errorsOnly) {
        answer = {{"errors", json::parse(errorList)}};
    } else if (fault == FaultKind::missingData) {
        answer = json::object();
    } else if (fault == FaultKind::nullNodes && isFacts) {
        replaceEach(answer, "pullRequest", nullptr);
    } else if (fault == FaultKind::foreignNodes && isFacts) {
        replaceEach(answer, "nameWithOwner", "somebody/else");
    } else if (fault == FaultKind::nullNodes) {
        replaceNodes(answer, nullptr);
    } else if (fault == FaultKind::foreignNodes && isSearch) {
        replaceNodes(answer, json::object());
    } else if (fault == FaultKind::noCursor && isSearch) {
        replaceFirst(answer, "hasNextPage", true);
        replaceFirst(answer, "endCursor", nullptr);
    }
}

void applyToValues(json::value& answer, RequestKind kind, FaultKind fault)
{
    if (fault == FaultKind::wrongType) {
        const auto members = membersNamed(answer, spoiltMembers(kind).typed);
        if (!members.empty()) {
            json::value& member = *members.front();
            member = member.is_string() ? json::value(7) : json::value("seven");
        }
    } else if (fault == FaultKind::notUtf8) {
        replaceFirst(answer, spoiltMembers(kind).text, "\xFF");
    } else if (isGraphQl(kind)) {
        applyToGraphQl(answer, kind, fault);
    }
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
    } else if (fault.kind == FaultKind::deep) {
        const std::string lists = std::string(depth, '[') + std::string(depth, ']');
        body = isGraphQl(kind) ? R"({"data":)" + lists + "}" : lists;
    } else if (fault.kind == FaultKind::padding) {
        body.insert(0, static_cast<std::size_t>(fault.value) * mebibyte, ' ');
    } else {
        editJson(body, [&](json::value& answer) { applyToValues(answer, kind, fault.kind); });
    }
}

}  // namespace

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
        if (!applyToTransport(delivery, fault)) {
            applyToBody(delivery.response.body, answer.kind, fault);
        }
    }
    return delivery;
}

}  // namespace SampleGitHub
