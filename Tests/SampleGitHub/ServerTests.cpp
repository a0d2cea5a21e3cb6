#include "GhTest.h"
#include "Support/Errors.h"

#include <fstream>
#include <stdexcept>
#include <thread>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using namespace SampleGitHub;
using namespace TestSupport;

ServerOptions emptyAt(const std::filesystem::path& socket)
{
    ServerOptions options;
    options.socket = socket;
    return options;
}

std::string refusal(const std::filesystem::path& socket)
{
    return messageOf<std::runtime_error>([&] { const Server server(emptyAt(socket)); });
}

/// Leaves a socket's file behind that nobody listens at.
void abandonSocket(const std::filesystem::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.native().copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto* const general = reinterpret_cast<const sockaddr*>(&address);
    EXPECT_EQ(bind(descriptor, general, sizeof(address)), 0);
    close(descriptor);
}

TEST(SampleServer, itsSocketLivesAsLongAsItServes)
{
    const TemporaryFolder folder;
    Server server(emptyAt(folder.path() / "s"));
    EXPECT_TRUE(std::filesystem::is_socket(folder.path() / "s"));

    server.stop();

    EXPECT_FALSE(std::filesystem::exists(folder.path() / "s"));
    server.stop();
}

TEST(SampleServer, anAbandonedSocketIsReplaced)
{
    const TemporaryFolder folder;
    abandonSocket(folder.path() / "s");
    EXPECT_EQ(refusal(folder.path() / "s"), "none");
}

TEST(SampleServer, whatElseStandsAtTheSocketsPlaceIsKept)
{
    const TemporaryFolder folder;
    const Server first(emptyAt(folder.path() / "s"));
    EXPECT_THAT(refusal(folder.path() / "s"), HasSubstr("could not be created"));
    EXPECT_TRUE(std::filesystem::is_socket(folder.path() / "s"));

    std::ofstream(folder.path() / "file") << "precious";
    EXPECT_THAT(refusal(folder.path() / "file"), HasSubstr("could not be created"));
    EXPECT_EQ(std::filesystem::file_size(folder.path() / "file"), 8U);
}

TEST(SampleServer, aPathTooLongForASocketIsRefused)
{
    EXPECT_THAT(refusal("/tmp/" + std::string(103, 'x')), HasSubstr("longer than 107 bytes"));
}

class SampleServerRun : public GhTest {};

TEST_F(SampleServerRun, stoppingEndsRequestsThatAreBeingDelayed)
{
    serve("everyday");
    setFault("delay=100000000");
    Result result;
    std::thread client([&] { result = search("is:pr"); });
    while (server().requests().empty()) {
        std::this_thread::yield();
    }

    server().stop();
    client.join();

    EXPECT_EQ(result.status, 1);
}

TEST_F(SampleServerRun, requestsAreRecordedInOrderWithoutTheToken)
{
    serve("everyday");
    ASSERT_EQ(search("is:pr is:open").status, 0);
    ASSERT_EQ(repositories().status, 0);

    const auto requests = server().requests();

    ASSERT_THAT(requests, SizeIs(2));
    EXPECT_EQ(requests[0].kind, RequestKind::search);
    EXPECT_EQ(requests[0].request.method, "POST");
    EXPECT_EQ(requests[0].request.target, "/graphql");
    const auto body = boost::json::parse(requests[0].request.body);
    EXPECT_EQ(at(body, "/query"), searchDocument());
    EXPECT_EQ(at(body, "/variables"), boost::json::parse(R"({"q": "is:pr is:open"})"));
    EXPECT_EQ(requests[1].kind, RequestKind::repositories);
    EXPECT_EQ(requests[1].request.method, "GET");
    EXPECT_EQ(requests[1].request.body, "");
    EXPECT_FALSE(requests[1].request.headers.contains("authorization"));
    EXPECT_THAT(requests[1].request.headers.at("user-agent"), HasSubstr("GitHub CLI"));

    server().forgetRequests();
    EXPECT_THAT(server().requests(), SizeIs(0));
}

TEST_F(SampleServerRun, severalClientsAreServedAtOnce)
{
    serve("everyday");
    setFault("delay=100000000@search");
    const std::filesystem::path apart = folder() / "apart";
    std::filesystem::create_directory(apart);
    std::thread waiting([&] {
        runProgram("gh", {"api", "graphql", "-f", "query={search}"}, environment(), apart);
    });
    while (server().requests().empty()) {
        std::this_thread::yield();
    }

    EXPECT_EQ(repositories().status, 0);

    server().stop();
    waiting.join();
}

}  // namespace
