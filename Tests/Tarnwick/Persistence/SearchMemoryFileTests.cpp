#include "Tarnwick/Persistence/SearchMemoryFile.h"

#include "Persistence/FileTrouble.h"
#include "Support/PullRequests.h"

#include <fstream>

namespace {

using namespace TestSupport;
using GitHub::SearchKnowledge;

class SearchMemoryFileTest : public testing::Test {
protected:
    void writeFile(const std::string& text) const { std::ofstream(file, std::ios::binary) << text; }

    Folder folder;
    std::filesystem::path file = SearchMemoryFile::beside(folder / "pull-requests.json");
    SearchKnowledge knowledge{
        .isGrouped = true,
        .groupSize = 6,
        .askedAt = date("2026-03-01T12:00:00Z"),
        .repository = "octo/tools"};
};

TEST_F(SearchMemoryFileTest, keepsTheKnowledgeForTheNextStart)
{
    EXPECT_EQ(SearchMemoryFile(file).load(), SearchKnowledge());
    SearchMemoryFile(file).save(knowledge);
    EXPECT_EQ(SearchMemoryFile(file).load(), knowledge);
    std::ifstream stream(file);
    EXPECT_EQ(
        std::string(std::istreambuf_iterator<char>(stream), {}),
        R"({"isGrouped":true,"groupSize":6,"askedAt":"2026-03-01T12:00:00Z",)"
        R"("repository":"octo/tools"})");
}

TEST_F(SearchMemoryFileTest, knowsNothingFromAFileThatIsNoSuchDocument)
{
    for (const char* const text :
         {"", "[]", R"({"isGrouped":1})", R"({"askedAt":"soon"})", "\xFF"}) {
        writeFile(text);
        EXPECT_EQ(SearchMemoryFile(file).load(), SearchKnowledge()) << text;
    }
    writeFile(std::string(100'000, ' ') + "{}");
    EXPECT_EQ(SearchMemoryFile(file).load(), SearchKnowledge());
}

TEST_F(SearchMemoryFileTest, remembersWhatCannotBeWrittenForAsLongAsItLives)
{
    std::filesystem::create_directory(file);
    SearchMemoryFile memory(file);
    memory.save(knowledge);
    EXPECT_EQ(memory.load(), knowledge);
}

}  // namespace
