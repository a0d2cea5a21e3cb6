#include "Persistence/FileTrouble.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace TestSupport {
namespace {

constexpr uid_t nobody = 65534;

}  // namespace

Folder::Folder()
{
    std::filesystem::permissions(path(), std::filesystem::perms::all);
}

std::filesystem::path Folder::path() const
{
    return _directory.path().toStdString();
}

std::vector<std::string> Folder::names() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path())) {
        names.push_back(entry.path().filename());
    }
    std::ranges::sort(names);
    return names;
}

std::string contentsOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot read " + file.string());
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeFile(const std::filesystem::path& file, const std::string& contents)
{
    std::ofstream stream(file, std::ios::binary);
    stream << contents;
    if (!stream.flush()) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

unsigned modeOf(const std::filesystem::path& file)
{
    return static_cast<unsigned>(std::filesystem::status(file).permissions());
}

OrdinaryUser::OrdinaryUser()
    : _wasSuperuser(geteuid() == 0)
{
    if (_wasSuperuser && setresuid(nobody, nobody, 0) != 0) {
        throw std::runtime_error("cannot become an ordinary user");
    }
}

OrdinaryUser::~OrdinaryUser()
{
    if (_wasSuperuser && setresuid(0, 0, 0) != 0) {
        std::terminate();
    }
}

LargestFile::LargestFile(std::size_t bytes)
    : _oldHandler(std::signal(SIGXFSZ, SIG_IGN))
{
    getrlimit(RLIMIT_FSIZE, &_old);
    const rlimit limit{bytes, _old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
}

LargestFile::~LargestFile()
{
    setrlimit(RLIMIT_FSIZE, &_old);
    std::signal(SIGXFSZ, _oldHandler);
}

pid_t startInOtherProcess(const std::function<void()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        int status = 1;
        try {
            work();
            status = 0;
        } catch (...) {
            status = 1;
        }
        _exit(status);
    }
    return child;
}

bool endedWell(pid_t process)
{
    int status = 0;
    return process > 0 && waitpid(process, &status, 0) == process && WIFEXITED(status)
           && WEXITSTATUS(status) == 0;
}

}  // namespace TestSupport
