#include "SampleGitHub/Server.h"

#include "SampleGitHub/FaultInjection.h"
#include "SampleGitHub/GitHub.h"

#include <boost/asio.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <thread>
#include <tuple>
#include <utility>

#include <sys/un.h>

namespace SampleGitHub {
namespace {

namespace asio = boost::asio;
namespace http = boost::beast::http;
using Protocol = asio::local::stream_protocol;
using boost::system::error_code;

constexpr std::uint64_t largestBody = std::uint64_t{16} << 20U;

PullRequestKit::Date currentTime()
{
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

/// The server's state apart from sockets. Requests are answered on the server's thread; tests
/// access it from theirs.
class State {
public:
    explicit State(ServerOptions options)
        : _now(options.now.value_or(currentTime()))
        , _options(std::move(options.gitHub))
        , _gitHub(std::make_unique<GitHub>(std::move(options.scenario), _now, _options))
        , _changedScenario(std::move(options.changedScenario))
        , _onRequest(std::move(options.onRequest))
        , _faults(options.faults)
    {}

    Delivery serve(Request request)
    {
        if (_changedScenario) {
            if (auto scenario = _changedScenario()) {
                _gitHub = std::make_unique<GitHub>(*std::move(scenario), _now, _options);
            }
        }
        Answer answer = _gitHub->answer(request);
        request.headers.erase("authorization");
        const RecordedRequest recorded{answer.kind, std::move(request)};
        if (_onRequest) {
            _onRequest(recorded);
        }
        const std::lock_guard lock(_mutex);
        _requests.push_back(recorded);
        return _faults.apply(std::move(answer));
    }

    void setFaults(const std::vector<Fault>& faults)
    {
        const std::lock_guard lock(_mutex);
        _faults = FaultInjection(faults);
    }

    std::vector<RecordedRequest> requests() const
    {
        const std::lock_guard lock(_mutex);
        return _requests;
    }

    void forgetRequests()
    {
        const std::lock_guard lock(_mutex);
        _requests.clear();
    }

private:
    PullRequestKit::Date _now;
    GitHubOptions _options;
    std::unique_ptr<GitHub> _gitHub;  // Used by the server's thread only.
    std::function<std::optional<Scenario>()> _changedScenario;
    std::function<void(const RecordedRequest&)> _onRequest;
    mutable std::mutex _mutex;
    FaultInjection _faults;                  // Guarded by _mutex.
    std::vector<RecordedRequest> _requests;  // Guarded by _mutex.
};

Request toRequest(http::request<http::string_body> message)
{
    Request request;
    request.method = std::string(message.method_string());
    request.target = std::string(message.target());
    for (const auto& field : message) {
        std::string name(field.name_string());
        for (char& character : name) {
            character = character >= 'A' && character <= 'Z'
                            ? static_cast<char>(character - 'A' + 'a')
                            : character;
        }
        request.headers[name] = std::string(field.value());
    }
    request.body = std::move(message.body());
    return request;
}

/// A connection: reads and answers requests until the client closes it. Kept alive by its pending
/// operation.
class Connection : public std::enable_shared_from_this<Connection> {
public:
    Connection(Protocol::socket socket, State& state)
        : _socket(std::move(socket))
        , _timer(_socket.get_executor())
        , _state(state)
    {}

    void read()
    {
        _parser = std::make_unique<Parser>();
        _parser->body_limit(largestBody);
        http::async_read(
            _socket, _buffer, *_parser, [self = shared_from_this()](error_code error, std::size_t) {
                if (!error) {
                    self->answer();
                }
            });
    }

private:
    using Parser = http::request_parser<http::string_body>;

    void answer()
    {
        _isKeptAlive = _parser->get().keep_alive();
        Delivery delivery = _state.serve(toRequest(_parser->release()));
        if (delivery.isHungUp) {
            error_code ignored;
            std::ignore = _socket.close(ignored);
            return;
        }
        _message = {};
        _message.result(static_cast<unsigned>(delivery.response.status));
        _message.set(http::field::content_type, "application/json; charset=utf-8");
        for (const auto& [name, value] : delivery.response.headers) {
            _message.set(name, value);
        }
        _message.keep_alive(_isKeptAlive);
        _message.content_length(delivery.response.body.size());
        _message.body() = std::move(delivery.response.body);
        if (delivery.cutOffAt) {
            _message.body().resize(*delivery.cutOffAt);
            _isKeptAlive = false;
        }
        if (delivery.delay.count() == 0) {
            write();
            return;
        }
        _timer.expires_after(delivery.delay);
        _timer.async_wait([self = shared_from_this()](error_code error) {
            if (!error) {
                self->write();
            }
        });
    }

    void write()
    {
        http::async_write(
            _socket, _message, [self = shared_from_this()](error_code error, std::size_t) {
                if (!error && self->_isKeptAlive) {
                    self->read();
                }
            });
    }

    Protocol::socket _socket;
    asio::steady_timer _timer;
    State& _state;
    boost::beast::flat_buffer _buffer;
    std::unique_ptr<Parser> _parser;  // For a single request.
    http::response<http::string_body> _message;
    bool _isKeptAlive = false;
};

void checkLength(const std::filesystem::path& socket)
{
    if (socket.native().size() >= sizeof(sockaddr_un::sun_path)) {
        throw std::runtime_error(
            "The socket's path is longer than 107 bytes: " + socket.string() + ".");
    }
}

void removeStaleSocket(const std::filesystem::path& path)
{
    std::error_code ignored;
    if (!std::filesystem::is_socket(path, ignored)) {
        return;
    }
    asio::io_context context;
    Protocol::socket probe(context);
    error_code error;
    if (probe.connect(Protocol::endpoint(path.string()), error)
        == asio::error::connection_refused) {
        std::filesystem::remove(path, ignored);
    }
}

Protocol::acceptor listenAt(asio::io_context& context, const std::filesystem::path& path)
{
    checkLength(path);
    removeStaleSocket(path);
    try {
        return {context, Protocol::endpoint(path.string())};
    } catch (const boost::system::system_error& error) {
        throw std::runtime_error(
            "The socket " + path.string() + " could not be created: " + error.code().message()
            + ".");
    }
}

}  // namespace

class Server::Implementation {
public:
    explicit Implementation(ServerOptions options)
        : _path(options.socket)
        , _state(std::move(options))
        , _context(std::make_unique<asio::io_context>())
        , _acceptor(std::make_unique<Protocol::acceptor>(listenAt(*_context, _path)))
    {
        accept();
        _thread = std::thread([this] { _context->run(); });
    }

    void stop()
    {
        const std::lock_guard lock(_stopMutex);
        if (_thread.joinable()) {
            _context->stop();
            _thread.join();
            _acceptor.reset();
            _context.reset();  // Destroys all connections.
            std::error_code ignored;
            std::filesystem::remove(_path, ignored);
        }
    }

    State& state() { return _state; }

    const std::filesystem::path& path() const { return _path; }

private:
    void accept()
    {
        _acceptor->async_accept([this](error_code error, Protocol::socket socket) {
            if (!error) {
                std::make_shared<Connection>(std::move(socket), _state)->read();
            }
            accept();
        });
    }

    std::filesystem::path _path;
    std::mutex _stopMutex;
    State _state;
    std::unique_ptr<asio::io_context> _context;
    std::unique_ptr<Protocol::acceptor> _acceptor;
    std::thread _thread;
};

Server::Server(ServerOptions options)
    : _implementation(std::make_unique<Implementation>(std::move(options)))
{}

Server::~Server()
{
    stop();
}

void Server::stop()
{
    _implementation->stop();
}

void Server::setFaults(const std::vector<Fault>& faults)
{
    _implementation->state().setFaults(faults);
}

std::vector<RecordedRequest> Server::requests() const
{
    return _implementation->state().requests();
}

void Server::forgetRequests()
{
    _implementation->state().forgetRequests();
}

const std::filesystem::path& Server::socket() const
{
    return _implementation->path();
}

}  // namespace SampleGitHub
