#pragma once

#include "SampleGitHub/Fault.h"
#include "SampleGitHub/GitHub.h"
#include "SampleGitHub/Http.h"
#include "SampleGitHub/RequestKind.h"
#include "SampleGitHub/Scenario.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace SampleGitHub {

/// A request that the server got. Its headers are without the token.
struct RecordedRequest {
    RequestKind kind = RequestKind::other;
    Request request;
};

struct ServerOptions {
    std::filesystem::path socket;  ///< At most 107 bytes long.
    Scenario scenario;
    std::vector<Fault> faults;
    GitHubOptions gitHub;
    std::optional<PullRequestKit::Date> now;  ///< What ages count back from; empty: the start.
    /// Called on the server's thread before each answer: what is served from here on, when it has
    /// changed. Ages go on counting back from the same instant.
    std::function<std::optional<Scenario>()> changedScenario;
    /// Called for every request on the server's thread, before the answer is sent.
    std::function<void(const RecordedRequest&)> onRequest;
};

/// The sample GitHub, serving plain HTTP on a Unix socket from a thread of its own. It serves from
/// the end of the constructor to `stop()`; the socket's file lives as long. Several connections may
/// be open at once. All functions are safe from any thread.
class Server {
public:
    /// Throws `std::runtime_error` with one English sentence when the socket cannot be made. A
    /// socket's file that nobody serves any more is replaced.
    explicit Server(ServerOptions options);
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server();

    /// Ends all connections and the thread. Answers that are being delayed are not sent.
    void stop();

    /// Replaces the faults that are switched on; the numbers of requests count anew from here.
    void setFaults(const std::vector<Fault>& faults);

    /// Everything that was asked so far, in order.
    std::vector<RecordedRequest> requests() const;

    void forgetRequests();

    const std::filesystem::path& socket() const;

private:
    class Implementation;

    std::unique_ptr<Implementation> _implementation;
};

}  // namespace SampleGitHub
