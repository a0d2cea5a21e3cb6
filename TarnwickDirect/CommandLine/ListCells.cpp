#include "TarnwickDirect/CommandLine/ListCells.h"

#include "PullRequestKit/TurnWording.h"

namespace TarnwickDirect {

using namespace PullRequestKit;

namespace {

Cell stateCell(const PullRequest& pullRequest)
{
    if (pullRequest.hasMergeConflict()) {
        return {pullRequest.isDraft ? "draft, conflict" : "conflict", Style::red};
    }
    if (pullRequest.isDraft) {
        return {"draft", Style::faint};
    }
    const std::string name(nameOf(pullRequest.state));
    switch (pullRequest.state) {
    case PullRequestState::open:
        return {name, Style::green};
    case PullRequestState::closed:
        return {name, Style::red};
    case PullRequestState::merged:
        return {name, Style::purple};
    }
    return {name, Style::plain};
}

Cell reviewCell(const PullRequest& pullRequest)
{
    const std::string count = " " + pullRequest.reviewCountLabel();
    switch (pullRequest.reviewState) {
    case ReviewState::none:
        return {
            "no reviews" + (pullRequest.requiredApprovingReviewCount ? count : ""), Style::faint};
    case ReviewState::pending:
        return {"pending" + count, Style::yellow};
    case ReviewState::approved:
        return {"approved" + count, Style::green};
    case ReviewState::commented:
        return {"commented" + count, Style::plain};
    case ReviewState::changesRequested:
        return {"changes requested" + count, Style::red};
    }
    return {count, Style::plain};
}

Cell checksCell(const ProgressCount& checks)
{
    if (checks.total == 0) {
        return {"no checks", Style::faint};
    }
    const std::string count = "checks " + checks.label();
    if (checks.failed > 0) {
        return {count + ", " + std::to_string(checks.failed) + " failed", Style::red};
    }
    return {count, checks.allComplete() ? Style::green : Style::yellow};
}

}  // namespace

Cell titleCell(const PullRequest& pullRequest, bool isVisited)
{
    return {
        "#" + std::to_string(pullRequest.id.number) + " " + singleLine(pullRequest.title),
        isVisited ? Style::faint : Style::plain};
}

Cell reasonCell(const Turn& turn, int columns)
{
    const Style style = asksSomething(turn.whose) ? Style::strong : Style::faint;
    const std::string whole = singleLine(reasonText(turn));
    if (columns == 0 || displayWidth(whole) <= columns || turn.names.empty()) {
        return {whole, style};
    }
    const std::string others =
        turn.names.size() > 1 ? ", +" + std::to_string(turn.names.size() - 1) : std::string();
    const int rest = columns - displayWidth(others);
    return {elided(singleLine(reasonWords(turn) + turn.names.front()), rest) + others, style};
}

Cell headingCell(const Tarnwick::TurnGroup& group)
{
    return {
        std::string(headingOf(group.whose)) + "  " + std::to_string(group.count), Style::strong};
}

std::vector<Cell> detailCells(const PullRequest& pullRequest)
{
    return {
        Cell{singleLine(pullRequest.id.repository), Style::faint},
        stateCell(pullRequest),
        reviewCell(pullRequest),
        checksCell(pullRequest.checks)};
}

}  // namespace TarnwickDirect
