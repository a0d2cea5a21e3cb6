#include "PullRequestKit/Json/Writing.h"
#include "PullRequestKit/PullRequestProvider.h"
#include "Support/Errors.h"

namespace {

using namespace TestSupport;

TEST(AuthenticationStatus, isEqualOnlyWhenCaseAndPayloadAre)
{
    const AuthenticationStatus knownAccount = Authenticated{"a"};
    EXPECT_EQ(knownAccount, AuthenticationStatus(Authenticated{"a"}));
    EXPECT_NE(knownAccount, AuthenticationStatus(Authenticated{"b"}));
    EXPECT_NE(knownAccount, AuthenticationStatus(Authenticated{}));
    EXPECT_NE(AuthenticationStatus(Authenticated{""}), AuthenticationStatus(Authenticated{}));

    const AuthenticationStatus signedOut = NotAuthenticated{"m"};
    EXPECT_EQ(signedOut, AuthenticationStatus(NotAuthenticated{"m"}));
    EXPECT_NE(signedOut, AuthenticationStatus(NotAuthenticated{"n"}));
    EXPECT_NE(signedOut, AuthenticationStatus(Unavailable{"m"}));
    EXPECT_NE(signedOut, AuthenticationStatus(Authenticated{"m"}));
    EXPECT_NE(AuthenticationStatus(Unavailable{"m"}), AuthenticationStatus(Unavailable{"n"}));
}

TEST(ReviewerScope, isReadFromItsThreeTextsOnly)
{
    EXPECT_EQ(Json::decode<ReviewerScope>(R"("myself")"), ReviewerScope::myself);
    EXPECT_EQ(Json::decode<ReviewerScope>(R"("any")"), ReviewerScope::any);
    EXPECT_EQ(Json::decode<ReviewerScope>(R"("involved")"), ReviewerScope::involved);
    for (const auto* text :
         {R"("Any")", R"("Involved")", R"("me")", R"("")", R"("any ")", "0", "null", "{}"}) {
        EXPECT_THROW(Json::decode<ReviewerScope>(text), DecodingError) << text;
    }
}

TEST(ReviewerScope, isWrittenAsItsText)
{
    EXPECT_EQ(Json::encode(ReviewerScope::myself), R"("myself")");
    EXPECT_EQ(Json::encode(ReviewerScope::any), R"("any")");
    EXPECT_EQ(Json::encode(ReviewerScope::involved), R"("involved")");
}

TEST(ReviewerScope, listsItsCasesInOrder)
{
    EXPECT_THAT(
        allCases<ReviewerScope>(),
        ElementsAre(ReviewerScope::myself, ReviewerScope::any, ReviewerScope::involved));
}

TEST(ProviderError, describesItselfWithItsMessageUnchanged)
{
    const ProviderError error(" gh: not found\n");
    EXPECT_EQ(error.message(), " gh: not found\n");
    EXPECT_STREQ(error.what(), " gh: not found\n");
    EXPECT_EQ(ProviderError("").message(), "");
}

TEST(DecodingError, namesThePathOrTheDataAsAWhole)
{
    const DecodingError inside("data.nodes[3]", "is not text");
    EXPECT_STREQ(inside.what(), "The data could not be read: data.nodes[3] is not text.");
    EXPECT_EQ(inside.path(), "data.nodes[3]");
    const DecodingError whole("", "is not an object");
    EXPECT_STREQ(whole.what(), "The data could not be read: it is not an object.");
    EXPECT_EQ(whole.path(), "");
}

}  // namespace
