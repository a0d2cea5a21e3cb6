#include "TarnwickDirect/CommandLine/ListJson.h"

#include "Fakes/ModelFixture.h"

#include <boost/json.hpp>
#include <sstream>

namespace {

using PullRequestKit::NotAuthenticated;
using PullRequestKit::Unavailable;

class ListJson : public TestSupport::ModelTest {
protected:
    boost::json::object written()
    {
        start();
        refresh();
        std::ostringstream text;
        TarnwickDirect::writeListJson(text, *model);
        return boost::json::parse(text.str()).as_object();
    }
};

std::string messageOf(const boost::json::object& list)
{
    return std::string(list.at("message").as_string());
}

TEST_F(ListJson, hasTheMessageOfEachStateThatHasOneEvenAnEmptyOne)
{
    for (const std::string message : {"", "What happened."}) {
        provider->setStatus(NotAuthenticated{message});
        EXPECT_EQ(written().at("state"), "signedOut");
        EXPECT_EQ(messageOf(written()), message);
        provider->setStatus(Unavailable{message});
        EXPECT_EQ(written().at("state"), "unavailable");
        EXPECT_EQ(messageOf(written()), message);
    }
    provider->setStatus(PullRequestKit::Authenticated{});
    provider->setError("HTTP 500");
    EXPECT_EQ(written().at("state"), "failed");
    EXPECT_EQ(messageOf(written()), "HTTP 500");
}

TEST_F(ListJson, hasNoMessageWhenTheListIsLoaded)
{
    const auto list = written();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_FALSE(list.contains("message"));
}

}  // namespace
