#include "PullRequestKit/TurnWording.h"

namespace PullRequestKit {
namespace {

/// Such as "2nd", "11th" and "21st".
std::string ordinal(std::int64_t number)
{
    const std::int64_t lastTwo = number % 100;
    const bool isTeen = lastTwo >= 11 && lastTwo <= 13;
    const std::int64_t last = isTeen ? 0 : number % 10;
    const char* const ending = last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th";
    return std::to_string(number) + ending;
}

std::string beforeNames(const std::string& words, const Turn& turn)
{
    return turn.names.empty() ? words : words + ": ";
}

std::string openThreads(std::int64_t count)
{
    return std::to_string(count) + (count == 1 ? " open thread" : " open threads");
}

}  // namespace

std::string reasonWords(const Turn& turn)
{
    switch (turn.reason) {
    case TurnReason::none:
        return {};
    case TurnReason::draft:
        return "Draft";
    case TurnReason::yourReview:
        return "Your review";
    case TurnReason::yourReviewAgain:
        return "Your review again";
    case TurnReason::changesRequested:
        return beforeNames("Changes requested", turn);
    case TurnReason::conflicts:
        return "Conflicts";
    case TurnReason::checksFailed:
        return beforeNames("Checks failed", turn);
    case TurnReason::openThreads:
        return openThreads(turn.number);
    case TurnReason::noReviewers:
        return "No reviewers yet";
    case TurnReason::readyToMerge:
        return "Ready to merge";
    case TurnReason::teamReview:
        return beforeNames("Your team’s review", turn);
    case TurnReason::waitingFor:
        return "Waiting for ";
    case TurnReason::waitingForPullRequest:
        return "Waiting for #" + std::to_string(turn.number);
    case TurnReason::checksRunning:
        return "Checks running";
    case TurnReason::mergeQueue:
        return turn.number > 0 ? "Merge queue, " + ordinal(turn.number) : "Merge queue";
    case TurnReason::autoMerge:
        return "Auto-merge";
    }
    return {};
}

std::string reasonText(const Turn& turn)
{
    std::string text = reasonWords(turn);
    const char* separator = "";
    for (const std::string& name : turn.names) {
        text += separator + name;
        separator = ", ";
    }
    return text;
}

std::string_view headingOf(Whose whose)
{
    switch (whose) {
    case Whose::you:
        return "Waiting on You";
    case Whose::ready:
        return "Ready to Merge";
    case Whose::teams:
        return "Your Teams";
    case Whose::others:
        return "Waiting on Others";
    }
    return {};
}

}  // namespace PullRequestKit
