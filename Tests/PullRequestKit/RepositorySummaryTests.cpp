#include "PullRequestKit/RepositorySummary.h"

#include "PullRequestKit/Json/Writing.h"
#include "Support/Errors.h"

namespace {

using namespace TestSupport;

const RepositorySummary complete{"octo/tools", "private", "C++", "main", true};

RepositorySummary named(std::string fullName)
{
    RepositorySummary summary;
    summary.fullName = std::move(fullName);
    return summary;
}

TEST(RepositorySummary, isIdentifiedByItsFullName)
{
    EXPECT_EQ(complete.id(), "octo/tools");
}

TEST(RepositorySummary, readsOnlyAFullName)
{
    const auto summary = Json::decode<RepositorySummary>(R"({"fullName":"octo/tools"})");
    EXPECT_EQ(summary.fullName, "octo/tools");
    EXPECT_EQ(summary.visibility, std::nullopt);
    EXPECT_EQ(summary.language, std::nullopt);
    EXPECT_EQ(summary.defaultBranch, std::nullopt);
    EXPECT_FALSE(summary.isArchived);
}

TEST(RepositorySummary, takesNullsAsAbsence)
{
    const auto summary = Json::decode<RepositorySummary>(
        R"({"fullName":"octo/tools","visibility":null,"language":null,)"
        R"("defaultBranch":null,"isArchived":null})");
    EXPECT_EQ(summary, named("octo/tools"));
}

TEST(RepositorySummary, writesPresentFieldsInTheirOrder)
{
    EXPECT_EQ(
        Json::encode(complete),
        R"({"fullName":"octo/tools","visibility":"private","language":"C++",)"
        R"("defaultBranch":"main","isArchived":true})");
    EXPECT_EQ(Json::encode(named("octo/tools")), R"({"fullName":"octo/tools","isArchived":false})");
}

TEST(RepositorySummary, readsBackWhatItWrote)
{
    const std::vector<RepositorySummary> list{
        complete, named("octo/é"), {"octo/b", "", "", "", false}};
    EXPECT_EQ(Json::decode<std::vector<RepositorySummary>>(Json::encode(list)), list);
}

TEST(RepositorySummary, refusesWrongValuesWithTheirPath)
{
    const auto refusedFor = [](std::string_view text) {
        return pathOf([&] { Json::decode<RepositorySummary>(text); });
    };
    EXPECT_EQ(refusedFor(R"({})"), "fullName");
    EXPECT_EQ(refusedFor(R"({"fullName":null})"), "fullName");
    EXPECT_EQ(refusedFor(R"({"fullName":7})"), "fullName");
    EXPECT_EQ(refusedFor(R"({"fullName":"a/b","visibility":7})"), "visibility");
    EXPECT_EQ(refusedFor(R"({"fullName":"a/b","language":{}})"), "language");
    EXPECT_EQ(refusedFor(R"({"fullName":"a/b","defaultBranch":[]})"), "defaultBranch");
    EXPECT_EQ(refusedFor(R"({"fullName":"a/b","isArchived":"no"})"), "isArchived");
    EXPECT_EQ(refusedFor("[]"), "");
}

}  // namespace
