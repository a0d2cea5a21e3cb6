#include "Support/PullRequests.h"

#include <stdexcept>
#include <utility>

namespace TestSupport {

Date date(std::string_view text)
{
    const auto date = parseDate(text);
    if (!date) {
        throw std::invalid_argument("not a date: " + std::string(text));
    }
    return *date;
}

PullRequest makePullRequest(std::int64_t number)
{
    return makePullRequest(number, "branch-" + std::to_string(number), "main");
}

PullRequest makePullRequest(std::int64_t number, std::string head, std::string base)
{
    const std::string repository = "octo/tools";
    PullRequest pullRequest;
    pullRequest.id = {"github", "github.com", repository, number};
    pullRequest.title = "Pull request " + std::to_string(number);
    pullRequest.url = {"https://github.com/octo/tools/pull/" + std::to_string(number)};
    pullRequest.author = "octo";
    pullRequest.createdAt = date("2024-05-01T10:00:00Z");
    pullRequest.updatedAt = date("2024-05-01T12:00:00Z");
    pullRequest.mergeability = PullRequestMergeability::mergeable;
    pullRequest.head = {repository, std::move(head)};
    pullRequest.base = {repository, std::move(base)};
    return pullRequest;
}

rc::Gen<Date> anyDate()
{
    const auto first = date("0000-01-01T00:00:00Z").time_since_epoch().count();
    const auto last = date("9999-12-31T23:59:59Z").time_since_epoch().count();
    return rc::gen::map(rc::gen::inRange(first, last + 1), [](Date::rep seconds) {
        return Date{std::chrono::seconds{seconds}};
    });
}

rc::Gen<std::string> anyText()
{
    const auto piece = rc::gen::element<std::string>(
        "a",
        "Z",
        "7",
        " ",
        "/",
        "|",
        "\"",
        "\\",
        "\n",
        "\t",
        "\x01",
        "\x7f",
        "é",
        "日本",
        "🦀",
        "עב",
        "");
    return rc::gen::map(
        rc::gen::container<std::vector<std::string>>(piece), [](const auto& pieces) {
            std::string text;
            for (const std::string& part : pieces) {
                text += part;
            }
            return text;
        });
}

namespace {

template<typename E>
rc::Gen<E> anyCase()
{
    const auto cases = allCases<E>();
    return rc::gen::elementOf(std::vector<E>(cases.begin(), cases.end()));
}

rc::Gen<ProgressCount> anyProgress()
{
    return rc::gen::build<ProgressCount>(
        rc::gen::set(&ProgressCount::completed),
        rc::gen::set(&ProgressCount::total),
        rc::gen::set(&ProgressCount::failed));
}

rc::Gen<BranchReference> anyBranch()
{
    return rc::gen::build<BranchReference>(
        rc::gen::set(&BranchReference::repository, anyText()),
        rc::gen::set(&BranchReference::name, anyText()));
}

rc::Gen<Url> anyUrl()
{
    return rc::gen::map(rc::gen::arbitrary<std::uint32_t>(), [](std::uint32_t number) {
        return Url{"https://github.com/octo/tools/pull/" + std::to_string(number)};
    });
}

rc::Gen<std::optional<Date>> maybeDate()
{
    return rc::gen::map(rc::gen::maybe(anyDate()), [](const rc::Maybe<Date>& maybe) {
        return maybe ? std::optional<Date>(*maybe) : std::nullopt;
    });
}

rc::Gen<std::optional<std::int64_t>> maybeCount()
{
    return rc::gen::map(
        rc::gen::maybe(rc::gen::arbitrary<std::int64_t>()),
        [](const rc::Maybe<std::int64_t>& maybe) {
            return maybe ? std::optional<std::int64_t>(*maybe) : std::nullopt;
        });
}

}  // namespace

rc::Gen<PullRequest> crowdedPullRequest()
{
    const auto small = [](int end) { return rc::gen::inRange(0, end); };
    const auto draws = rc::gen::tuple(small(12), small(12), small(3), small(3), small(5), small(3));
    return rc::gen::map(draws, [](const auto& drawn) {
        const auto [number, target, seconds, state, review, checks] = drawn;
        PullRequest pullRequest = makePullRequest(
            number, "branch-" + std::to_string(number % 10), "branch-" + std::to_string(target));
        pullRequest.updatedAt = Date{std::chrono::seconds{seconds}};
        pullRequest.state = allCases<PullRequestState>()[static_cast<std::size_t>(state)];
        pullRequest.reviewState = allCases<ReviewState>()[static_cast<std::size_t>(review)];
        pullRequest.checks = {checks, 2, 0};
        return pullRequest;
    });
}

}  // namespace TestSupport

namespace rc {

using namespace TestSupport;

Gen<PullRequest> Arbitrary<PullRequest>::arbitrary()
{
    return gen::build<PullRequest>(
        gen::set(
            &PullRequest::id,
            gen::build<PullRequestID>(
                gen::set(&PullRequestID::provider, anyText()),
                gen::set(&PullRequestID::host, anyText()),
                gen::set(&PullRequestID::repository, anyText()),
                gen::set(&PullRequestID::number))),
        gen::set(&PullRequest::title, anyText()),
        gen::set(&PullRequest::url, anyUrl()),
        gen::set(&PullRequest::author, anyText()),
        gen::set(&PullRequest::createdAt, maybeDate()),
        gen::set(&PullRequest::updatedAt, anyDate()),
        gen::set(&PullRequest::state, anyCase<PullRequestState>()),
        gen::set(&PullRequest::isDraft),
        gen::set(&PullRequest::mergeability, anyCase<PullRequestMergeability>()),
        gen::set(&PullRequest::head, anyBranch()),
        gen::set(&PullRequest::base, anyBranch()),
        gen::set(&PullRequest::reviewState, anyCase<ReviewState>()),
        gen::set(
            &PullRequest::reviewActivity,
            gen::build<ReviewActivity>(
                gen::set(&ReviewActivity::hasApproval),
                gen::set(&ReviewActivity::hasChangesRequested),
                gen::set(&ReviewActivity::hasCommentedReview),
                gen::set(&ReviewActivity::hasSubmittedReview))),
        gen::set(&PullRequest::reviews, anyProgress()),
        gen::set(&PullRequest::requiredApprovingReviewCount, maybeCount()),
        gen::set(&PullRequest::checks, anyProgress()));
}

}  // namespace rc
