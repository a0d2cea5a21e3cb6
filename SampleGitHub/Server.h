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

/// A received request; headers are without the token.
struct RecordedRequest {
    RequestKind kind = RequestKind::other;
    Request request;
};

struct ServerOptions {
    std::filesystem::path socket;  ///< At most 107 bytes.
    Scenario scenario;
    std::vector<Fault> faults;
    GitHubOptions gitHub;
    std::optional<PullRequestKit::Date>
        now;  ///< The instant that ages are relative to; empty: the start.
    /// Called on the server's thread before each answer. Returns the scenario if it has changed;
    /// ages stay relative to the same instant.
    std::function<std::optional<Scenario>()> changedScenario;
    /// Called on the server's thread for every request, before the answer is sent.
    std::function<void(const RecordedRequest&)> onRequest;
};

/// The sample GitHub as an HTTP server on a Unix socket, on a thread of its own. It serves until
/// `stop()`, which also removes the socket. All functions are safe from any thread.
class Server {
public:
    /// Replaces a stale socket file. Throws `std::runtime_error` with one English sentence.
    explicit Server(ServerOptions options);
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server();

    /// Closes all connections and ends the thread. Delayed answers are dropped.
    void stop();

    /// Replaces the active faults and restarts their counts.
    void setFaults(const std::vector<Fault>& faults);

    std::vector<RecordedRequest> requests() const;

    void forgetRequests();

    const std::filesystem::path& socket() const;

private:
    class Implementation;

    std::unique_ptr<Implementation> _implementation;
};

}  // namespace SampleGitHub
