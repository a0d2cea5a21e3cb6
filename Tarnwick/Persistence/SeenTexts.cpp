#include "Tarnwick/Persistence/SeenTexts.h"

#include <charconv>
#include <string_view>

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

constexpr std::size_t textCount = 7;
constexpr std::string_view draft = "draft";
constexpr std::string_view ready = "ready";

/// Exactly `count` non-negative numbers separated by slashes.
std::optional<std::vector<std::int64_t>> numbersIn(std::string_view text, std::size_t count)
{
    std::vector<std::int64_t> numbers;
    const char* const end = text.data() + text.size();
    for (const char* place = text.data(); numbers.size() < count;) {
        std::int64_t number = 0;
        const auto [rest, error] = std::from_chars(place, end, number);
        if (error != std::errc() || number < 0) {
            return std::nullopt;
        }
        numbers.push_back(number);
        const bool isLast = numbers.size() == count;
        if (isLast ? rest != end : rest == end || *rest != '/') {
            return std::nullopt;
        }
        place = isLast ? rest : rest + 1;
    }
    return numbers;
}

std::optional<bool> draftFlag(std::string_view text)
{
    return text == draft || text == ready ? std::optional(text == draft) : std::nullopt;
}

}  // namespace

std::vector<std::string> seenTexts(const SeenPullRequest& seen)
{
    std::vector<std::string> texts{
        formatDate(seen.updatedAt),
        std::string(nameOf(seen.state)),
        std::string(seen.isDraft ? draft : ready),
        std::string(nameOf(seen.mergeability)),
        std::string(nameOf(seen.reviewState)),
        seen.reviews.label(),
        seen.checks.label() + "/" + std::to_string(seen.checks.failed)};
    if (seen.headCommit) {
        texts.push_back(*seen.headCommit);
    }
    return texts;
}

std::optional<SeenPullRequest> seenFromTexts(std::span<const std::string> texts)
{
    if (texts.size() < textCount || texts.size() > textCount + 1) {
        return std::nullopt;
    }
    const auto updatedAt = parseDate(texts[0]);
    const auto state = enumNamed<PullRequestState>(texts[1]);
    const auto isDraft = draftFlag(texts[2]);
    const auto mergeability = enumNamed<PullRequestMergeability>(texts[3]);
    const auto reviewState = enumNamed<ReviewState>(texts[4]);
    const auto reviews = numbersIn(texts[5], 2);
    const auto checks = numbersIn(texts[6], 3);
    if (!updatedAt || !state || !isDraft || !mergeability || !reviewState || !reviews || !checks) {
        return std::nullopt;
    }
    SeenPullRequest seen{
        .updatedAt = *updatedAt,
        .state = *state,
        .isDraft = *isDraft,
        .mergeability = *mergeability,
        .reviewState = *reviewState,
        .reviews = {(*reviews)[0], (*reviews)[1], 0},
        .checks = {(*checks)[0], (*checks)[1], (*checks)[2]},
        .headCommit = {}};
    if (texts.size() > textCount) {
        seen.headCommit = texts[textCount];
    }
    return seen;
}

}  // namespace Tarnwick
