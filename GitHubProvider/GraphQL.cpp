#include "GitHubProvider/GraphQL.h"

namespace GitHubProvider {

PullRequestKit::ProviderError graphQLError(std::span<const GraphQLFailure> failures)
{
    std::string text;
    for (const GraphQLFailure& failure : failures) {
        if (&failure != &failures.front()) {
            text += '\n';
        }
        text += failure.message;
    }
    return PullRequestKit::ProviderError(text);
}

}  // namespace GitHubProvider
