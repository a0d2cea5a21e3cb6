#include "Benchmarks/SearchPages.h"

namespace Benchmarks {
namespace {

constexpr int nodeCount = 50;
constexpr int checkCount = 100;

std::string twoDigits(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

std::string checkRun(int node, int check)
{
    const std::string id = std::to_string(21'000'000'000LL + node * 1'000LL + check);
    const std::string minutes = twoDigits(check % 60);
    const std::string conclusion = check % 17 == 0   ? "\"FAILURE\""
                                   : check % 23 == 0 ? "null"
                                                     : "\"SUCCESS\"";
    return R"({"__typename":"CheckRun","name":"build / ubuntu-22.04 / variant )"
           + std::to_string(check) + R"(","status":"COMPLETED","conclusion":)" + conclusion
           + R"(,"databaseId":)" + id + R"(,"startedAt":"2024-05-01T09:)" + minutes
           + R"(:11Z","completedAt":"2024-05-01T10:)" + minutes
           + R"(:42Z","checkSuite":{"app":{"id":"MDM6QXBwMTUzNjg="},"workflowRun":{"databaseId":)"
           + std::to_string(8'900'000'000LL + check / 10)
           + R"(,"runAttempt":1,"file":{"path":".github/workflows/continuous-)"
           + std::to_string(check / 10) + R"(.yml"}}}})";
}

std::string status(int check)
{
    return R"({"__typename":"StatusContext","context":"deployment/preview-)" + std::to_string(check)
           + R"(","state":"SUCCESS","createdAt":"2024-05-01T09:00:)" + twoDigits(check % 60)
           + R"(Z"})";
}

std::string checks(int node)
{
    std::string list;
    for (int check = 0; check < checkCount; ++check) {
        list += (check > 0 ? "," : "") + (check % 20 == 0 ? status(check) : checkRun(node, check));
    }
    return list;
}

std::string pullRequest(int node)
{
    const std::string number = std::to_string(4'000 + node);
    return R"({"number":)" + number + R"(,"title":"Keep the connection open while requests are )"
           + R"(queued, step )" + number + R"(","url":"https://github.com/octo-org/service/pull/)"
           + number + R"(","createdAt":"2024-04-28T07:12:09Z","updatedAt":"2024-05-01T10:00:)"
           + twoDigits(node % 60) + R"(Z","state":"OPEN","isDraft":false,"mergeable":"MERGEABLE",)"
           + R"("baseRefName":"main","headRefName":"feature/keep-open-)" + number
           + R"(","author":{"login":"octocat-)" + number
           + R"("},"repository":{"nameWithOwner":"octo-org/service"},"baseRepository":)"
           + R"({"nameWithOwner":"octo-org/service"},"headRepository":{"nameWithOwner":)"
           + R"("octo-org/service"},"baseRef":{"id":"MDM6UmVmMTIzNDU2OnJlZnMvaGVhZHMvbWFpbg=="},)"
           + R"("reviewRequests":{"nodes":[{"requestedReviewer":{"login":"reviewer-one"}},)"
           + R"({"requestedReviewer":{"name":"platform"}}]},"latestReviews":{"nodes":[)"
           + R"({"state":"APPROVED","author":{"login":"reviewer-two"}}]},"commits":{"nodes":[)"
           + R"({"commit":{"statusCheckRollup":{"contexts":{"nodes":[)" + checks(node) + "]}}}}]}}";
}

}  // namespace

std::string searchPage()
{
    std::string nodes;
    for (int node = 0; node < nodeCount; ++node) {
        nodes += (node > 0 ? "," : "") + pullRequest(node);
    }
    return R"({"data":{"search":{"issueCount":1000,"pageInfo":{"hasNextPage":true,"endCursor":)"
           + quoted("Y3Vyc29yOjUw") + R"(},"nodes":[)" + nodes + "]}}}";
}

}  // namespace Benchmarks
