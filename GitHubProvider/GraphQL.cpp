#include "GitHubProvider/GraphQL.h"

namespace GitHub {

std::string graphQLMessage(std::span<const GraphQLFailure> failures)
{
    std::string text;
    for (const GraphQLFailure& failure : failures) {
        if (&failure != &failures.front()) {
            text += '\n';
        }
        text += failure.message;
    }
    return text;
}

}  // namespace GitHub
