#include "SampleGitHub/Fault.h"

#include "Support/Errors.h"

#include <stdexcept>

namespace {

using namespace SampleGitHub;

std::string refusal(const std::string& text)
{
    return TestSupport::messageOf<std::invalid_argument>([&] { parseFault(text); });
}

TEST(Fault, isANameWithAValueAKindAndANumber)
{
    EXPECT_EQ(parseFault("rate-limit"), (Fault{FaultKind::rateLimit, 0, {}, {}}));
    EXPECT_EQ(parseFault("delay=1500"), (Fault{FaultKind::delay, 1500, {}, {}}));
    EXPECT_EQ(
        parseFault("cut-off@search#2"), (Fault{FaultKind::cutOff, 0, RequestKind::search, 2}));
    EXPECT_EQ(
        parseFault("padding=200@repositories"),
        (Fault{FaultKind::padding, 200, RequestKind::repositories, {}}));
}

TEST(Fault, isRefusedWithASentence)
{
    EXPECT_EQ(refusal("earthquake"), "The fault earthquake is unknown.");
    EXPECT_EQ(refusal(""), "The fault  is unknown.");
    EXPECT_EQ(refusal("delay"), "The fault delay needs a value, such as delay=500.");
    EXPECT_EQ(
        refusal("delay=soon"), "The fault delay=soon needs a positive whole number as its value.");
    EXPECT_EQ(refusal("delay=0"), "The fault delay=0 needs a positive whole number as its value.");
    EXPECT_EQ(refusal("cut-off=3"), "The fault cut-off=3 takes no value.");
    EXPECT_EQ(
        refusal("cut-off@lunch"), "The fault cut-off@lunch needs a known kind of request after @.");
    EXPECT_EQ(refusal("cut-off#0"), "The fault cut-off#0 needs a request number after #.");
}

}  // namespace
