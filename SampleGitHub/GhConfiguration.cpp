#include "SampleGitHub/GhConfiguration.h"

#include "SampleGitHub/GitHub.h"

#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace SampleGitHub {
namespace {

void writeFile(const std::filesystem::path& file, const std::string& text)
{
    if (std::filesystem::exists(file)) {
        throw std::runtime_error("The file " + file.string() + " already exists.");
    }
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) {
        throw std::runtime_error("The file " + file.string() + " could not be written.");
    }
}

std::string hosts(const Account& account)
{
    // Versions from 2.40 on read the list of users, older ones the two entries beside it.
    const std::string token = "oauth_token: " + std::string(accountToken) + "\n";
    return "github.com:\n"
           "    git_protocol: https\n"
           "    users:\n"
           "        "
           + account.login
           + ":\n"
             "            "
           + token + "    user: " + account.login + "\n    " + token;
}

}  // namespace

void writeGhConfiguration(
    const std::filesystem::path& folder,
    const std::filesystem::path& socket,
    const std::optional<Account>& account)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        throw std::runtime_error(
            "The folder " + folder.string() + " could not be created: " + error.message() + ".");
    }
    // The version keeps newer `gh` from migrating the file.
    const std::string path = std::filesystem::absolute(socket).string();
    writeFile(
        folder / "config.yml",
        "version: \"1\"\nprompt: disabled\nhttp_unix_socket: " + path + "\n");
    if (account) {
        writeFile(folder / "hosts.yml", hosts(*account));
    }
}

}  // namespace SampleGitHub
