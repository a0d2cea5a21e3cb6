#include "TarnwickDirect/CommandLine/ListJson.h"

#include "PullRequestKit/Json/Writing.h"

#include <ostream>
#include <string_view>

namespace TarnwickDirect {

using namespace PullRequestKit;
using Tarnwick::MenuState;
using Tarnwick::PullRequestMenuModel;

namespace {

/// A refresh has ended by the time a list is written, so only four states are left.
std::string_view stateName(MenuState::Kind kind)
{
    switch (kind) {
    case MenuState::Kind::signedOut:
        return "signedOut";
    case MenuState::Kind::unavailable:
        return "unavailable";
    case MenuState::Kind::failed:
        return "failed";
    case MenuState::Kind::idle:
    case MenuState::Kind::checkingAuthentication:
    case MenuState::Kind::loading:
    case MenuState::Kind::loaded:
        return "loaded";
    }
    return "loaded";
}

boost::json::object header(const PullRequestMenuModel& model)
{
    boost::json::object object;
    const std::string_view state = stateName(model.state().kind);
    object["state"] = state;
    if (state != "loaded") {
        object["message"] = model.state().message;
    }
    if (const auto& error = model.refreshError()) {
        object["refreshError"] = *error;
    }
    if (const auto& account = model.account()) {
        object["account"] = *account;
    }
    if (const auto refreshed = model.lastRefreshed()) {
        object["lastRefreshed"] = formatDate(*refreshed);
    }
    return object;
}

}  // namespace

void writeListJson(std::ostream& stream, PullRequestMenuModel& model)
{
    std::string start = boost::json::serialize(header(model));
    start.pop_back();
    stream << start << R"(,"rows":[)";
    std::string_view separator;
    for (const PullRequestRow& row : model.rows()) {
        boost::json::object object = Json::writeObject(row);
        object["isVisited"] = model.visits().isVisited(row.pullRequest);
        stream << separator << boost::json::serialize(object);
        separator = ",";
    }
    stream << "]}\n";
}

}  // namespace TarnwickDirect
