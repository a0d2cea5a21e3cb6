#include "TarnwickDirect/CommandLine/RepositoriesText.h"

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using PullRequestKit::RepositorySummary;

RepositorySummary repository(std::string name, std::string language = "Go")
{
    RepositorySummary summary;
    summary.fullName = std::move(name);
    summary.visibility = "public";
    summary.language = std::move(language);
    return summary;
}

TerminalTraits terminal(int columns)
{
    return {.isTerminal = true, .canErase = true, .hasColors = false, .columns = columns};
}

TEST(RepositoriesText, marksTheSelectedOnes)
{
    EXPECT_EQ(
        repositoriesText({repository("octo/a"), repository("octo/tools")}, {"octo/tools"}, {}),
        "  octo/a      public, Go\n"
        "✓ octo/tools  public, Go\n");
}

TEST(RepositoriesText, hasNothingBehindANameWithoutDetails)
{
    RepositorySummary plain;
    plain.fullName = "octo/a";
    EXPECT_EQ(repositoriesText({plain}, {}, {}), "  octo/a\n");
}

TEST(RepositoriesText, cutsNoNameAndPutsDetailsBelowThatDoNotFit)
{
    const std::string longName = "octo/" + std::string(40, 'x');
    EXPECT_EQ(
        repositoriesText(
            {repository("octo/tools"),
             repository(longName),
             repository("octo/b", "Jupyter Notebook")},
            {},
            terminal(30)),
        "  octo/tools  public, Go\n"
        "  " + longName
            + "\n    public, Go\n"
              "  octo/b\n    public, Jupyter Notebook\n");
    EXPECT_EQ(
        repositoriesText({repository("octo/b", "Jupyter Notebook")}, {}, terminal(20)),
        "  octo/b\n    public, Jupyter…\n");
}

TEST(RepositoriesText, cannotSteerTheTerminal)
{
    EXPECT_EQ(
        repositoriesText({repository("octo/\x1b[2J", "G\no")}, {}, {}),
        "  octo/�[2J  public, G�o\n");
}

}  // namespace
