#include "TarnwickDirect/CommandLine/ListJson.h"

#include "PullRequestKit/Json/Writing.h"
#include "PullRequestKit/TurnWording.h"

#include <ostream>
#include <string_view>

namespace TarnwickDirect {

using namespace PullRequestKit;
using Tarnwick::MenuState;
using Tarnwick::PullRequestMenuModel;

namespace {

/// The states that are possible after a refresh.
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

boost::json::array texts(const std::vector<SharedText>& names)
{
    boost::json::array list;
    for (const SharedText& name : names) {
        list.emplace_back(name.text());
    }
    return list;
}

boost::json::value detailsOf(const PullRequestMenuModel& model, const PullRequestID& id)
{
    const auto found = model.list().details()->find(id);
    if (found == model.list().details()->end()) {
        return nullptr;
    }
    const PullRequestDetails& details = found->second;
    boost::json::array reviews;
    for (const LatestReview& review : details.reviews) {
        reviews.push_back({{"author", review.author}, {"state", nameOf(review.verdict)}});
    }
    return {
        {"requested",
         {{"users", Json::write(details.requestedUsers)},
          {"teams", Json::write(details.requestedTeams)}}},
        {"reviews", std::move(reviews)},
        {"checks",
         {{"passed", details.passedChecks.size()},
          {"running", texts(details.runningChecks)},
          {"failed", texts(details.failedChecks)}}},
        {"isCutOff", details.isCutOff()}};
}

void addTurn(boost::json::object& row, const Turn& turn)
{
    row["turn"] = nameOf(turn.whose);
    if (const std::string reason = reasonText(turn); !reason.empty()) {
        row["reason"] = reason;
    }
}

boost::json::object footer(const PullRequestMenuModel& model)
{
    const Tarnwick::HiddenCounts& hidden = model.list().hidden();
    boost::json::object object;
    object["hidden"] = {{"filters", hidden.filters}, {"muted", hidden.muted}};
    if (const auto& quota = model.quota()) {
        object["quota"] = {
            {"remaining", quota->remaining},
            {"limit", quota->limit},
            {"resetAt", formatDate(quota->resetAt)}};
    }
    return object;
}

}  // namespace

void writeListJson(
    std::ostream& stream, const PullRequestMenuModel& model, const Tarnwick::ArrangedRows& list)
{
    std::string start = boost::json::serialize(header(model));
    start.pop_back();
    stream << start << R"(,"rows":[)";
    for (std::size_t index = 0; index < list.rows.size(); ++index) {
        const PullRequestRow& row = list.rows[index];
        boost::json::object object = Json::writeObject(row);
        object["isVisited"] = model.visits().isVisited(row.pullRequest);
        if (!list.turns.empty()) {
            addTurn(object, list.turns[index]);
        }
        object["details"] = detailsOf(model, row.id());
        stream << (index > 0 ? "," : "") << boost::json::serialize(object);
    }
    stream << "]," << boost::json::serialize(footer(model)).substr(1) << '\n';
}

}  // namespace TarnwickDirect
