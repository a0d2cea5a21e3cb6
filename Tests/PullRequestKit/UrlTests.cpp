#include "PullRequestKit/Url.h"

#include <string>

#include <gmock/gmock.h>

namespace {

using namespace PullRequestKit;

TEST(Url, keepsTheTextOfAnAbsoluteAddress)
{
    for (const auto* text :
         {"https://github.com/octo/tools/pull/1",
          "HTTPS://GitHub.com",
          "http://localhost:8080/?q=a%20b#c",
          "x-open+it.2:anything",
          "https://example.org/é"}) {
        const auto url = parseUrl(text);
        ASSERT_TRUE(url) << text;
        EXPECT_EQ(url->text, text);
    }
}

TEST(Url, isNoOtherText)
{
    for (const std::string_view text :
         {std::string_view(""),
          std::string_view("octo/tools"),
          std::string_view("//github.com/octo"),
          std::string_view("https:"),
          std::string_view(":"),
          std::string_view("://github.com"),
          std::string_view("1https://github.com"),
          std::string_view("ht tps://github.com"),
          std::string_view("https//github.com:80"),
          std::string_view("https://github.com/a b"),
          std::string_view(" https://github.com"),
          std::string_view("https://github.com\n"),
          std::string_view("https://github.com/\x7F"),
          std::string_view("https://github.com/\0", 20)}) {
        EXPECT_EQ(parseUrl(text), std::nullopt) << text;
    }
}

}  // namespace
