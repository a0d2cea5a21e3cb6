#include "TarnwickTest.h"

#include <fstream>
#include <sstream>

namespace TestSupport {

ProgramResult TarnwickTest::tarnwick(const std::vector<std::string>& arguments) const
{
    return runProgram(TARNWICK_PROGRAM, arguments, environment(), folder());
}

boost::json::object TarnwickTest::listJson() const
{
    const ProgramResult result = tarnwick({"list", "--json"});
    return boost::json::parse(result.output).as_object();
}

void TarnwickTest::writeSettings(const std::string& lines) const
{
    std::filesystem::create_directories(settingsFile().parent_path());
    std::ofstream(settingsFile()) << "[General]\n" << lines;
}

void TarnwickTest::select(const std::string& repositories) const
{
    writeSettings(
        "filters.repositories=" + repositories
        + "\nfilters.repositoriesConfigured=true\nfilters.reviewers=Any\n"
          "filters.status=Draft, Open\nfilters.schemaVersion=2\n");
}

std::filesystem::path TarnwickTest::settingsFile() const
{
    const std::filesystem::path root = environment().at("XDG_CONFIG_HOME");
    return root / "dev.tarnwick.Tarnwick" / "settings.ini";
}

std::filesystem::path TarnwickTest::cacheFile() const
{
    const std::filesystem::path root = environment().at("XDG_DATA_HOME");
    return root / "dev.tarnwick.Tarnwick" / "pull-requests.json";
}

std::vector<std::string> outline(const boost::json::object& list)
{
    std::vector<std::string> lines;
    for (const boost::json::value& row : list.at("rows").as_array()) {
        const auto& id = row.at("pullRequest").at("id");
        std::string line(id.at("repository").as_string());
        line += "#" + boost::json::serialize(id.at("number"));
        line += " " + boost::json::serialize(row.at("depth"));
        if (const auto* const warning = row.as_object().if_contains("warning")) {
            line += " " + std::string(warning->as_string());
        }
        lines.push_back(line);
    }
    return lines;
}

std::string readFile(const std::filesystem::path& file)
{
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

}  // namespace TestSupport
