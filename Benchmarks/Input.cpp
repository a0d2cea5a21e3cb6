#include "Benchmarks/Input.h"

#include <cstdint>
#include <random>
#include <string>

namespace Benchmarks {
namespace {

using namespace PullRequestKit;

constexpr std::size_t perRepository = 50;

// The language defines the numbers of its engines, but not those of its distributions.
class Draw {
public:
    std::size_t below(std::size_t end) { return _engine() % end; }

    bool oneIn(std::size_t count) { return below(count) == 0; }

private:
    std::mt19937_64 _engine;
};

PullRequestState drawState(Draw& draw)
{
    if (draw.oneIn(10)) {
        return draw.oneIn(2) ? PullRequestState::merged : PullRequestState::closed;
    }
    return PullRequestState::open;
}

PullRequest makePullRequest(std::size_t place, Draw& draw)
{
    const std::string repository =
        "octo-organisation/service-" + std::to_string(place / perRepository);
    const std::string number = std::to_string(1000 + place);
    const auto checks = static_cast<std::int64_t>(draw.below(20));
    const auto completed = draw.oneIn(4) ? checks / 2 : checks;
    const auto reviews = static_cast<std::int64_t>(draw.below(4));
    const Date updatedAt{std::chrono::seconds{1'714'555'800 + draw.below(3600)}};

    PullRequest made;
    made.id = {"github", "github.com", repository, static_cast<std::int64_t>(1000 + place)};
    made.title = "Retry the upload of part " + number + " after a dropped connection";
    made.url = {"https://github.com/" + repository + "/pull/" + number};
    made.author = "developer-" + std::to_string(draw.below(40));
    made.createdAt = updatedAt - std::chrono::hours{draw.below(1000)};
    made.updatedAt = updatedAt;
    made.state = drawState(draw);
    made.isDraft = draw.oneIn(8);
    made.mergeability = allCases<PullRequestMergeability>()[draw.below(3)];
    made.head = {draw.oneIn(6) ? made.author + "/fork" : repository, "feature/part-" + number};
    made.base = {repository, "main"};
    made.reviewState = allCases<ReviewState>()[draw.below(5)];
    made.reviews = {reviews, reviews + static_cast<std::int64_t>(draw.below(3)), 0};
    made.checks = {completed, checks, draw.oneIn(5) ? completed / 2 : 0};
    return made;
}

}  // namespace

std::vector<PullRequest> makePullRequests(std::size_t count)
{
    Draw draw;
    std::vector<PullRequest> pullRequests;
    pullRequests.reserve(count);
    for (std::size_t place = 0; place < count; ++place) {
        pullRequests.push_back(makePullRequest(place, draw));
        if (place % perRepository != 0 && draw.oneIn(3)) {
            pullRequests.back().base = pullRequests[place - 1].head;
        }
    }
    // GitHub's answers are ordered by date of update, not by repository.
    for (std::size_t place = count; place > 1; --place) {
        std::swap(pullRequests[place - 1], pullRequests[draw.below(place)]);
    }
    return pullRequests;
}

}  // namespace Benchmarks
