#include "GitHubProvider/RequestFailure.h"

#include "GitHubProvider/Text.h"
#include "PullRequestKit/Errors.h"

namespace GitHub {

bool tellsOfSecondaryLimit(std::string_view text)
{
    return endOfAsciiIgnoringCase(text, "secondary rate limit") != std::string_view::npos;
}

bool tellsOfLimit(std::string_view text)
{
    return endOfAsciiIgnoringCase(text, "rate limit") != std::string_view::npos;
}

void throwRequestFailure(const std::string& message)
{
    if (tellsOfSecondaryLimit(message)) {
        throw PullRequestKit::SecondaryLimitError(message);
    }
    throw PullRequestKit::ProviderError(message);
}

}  // namespace GitHub
