#include "tests/support/HttpServer.h"

#include <algorithm>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

constexpr int turnMilliseconds = 20;

/// A socket of the loopback interface with a port of its own.
int bindToLoopback(int& port) {
    const int bound = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (bound < 0 || bind(bound, generic, length) != 0 || getsockname(bound, generic, &length) != 0)
        throw std::runtime_error("no loopback interface");
    port = ntohs(address.sin_port);
    return bound;
}

int listenOnLoopback(int& port) {
    const int listener = bindToLoopback(port);
    if (listen(listener, 16) != 0)
        throw std::runtime_error("no loopback interface");
    return listener;
}

bool isReadable(int descriptor, int milliseconds) {
    pollfd wait{descriptor, POLLIN, 0};
    return poll(&wait, 1, milliseconds) > 0;
}

/// False: the other side has gone.
bool writeAll(int connection, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

std::string response(const std::string& status, const std::string& header, const std::string& body) {
    return "HTTP/1.1 " + status + "\r\n" + header + "\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

/// Of a proxy the whole address is requested.
std::string pathOf(const std::string& target) {
    return target.starts_with("http://") ? target.substr(target.find('/', 7)) : target;
}

std::string requestedPath(const std::string& request) {
    const std::size_t start = request.find(' ') + 1;
    return pathOf(request.substr(start, request.find(' ', start) - start));
}

} // namespace

HttpServer::HttpServer() : listener_(listenOnLoopback(port_)), thread_([this] { run(); }) {}

HttpServer::~HttpServer() {
    stopping_ = true;
    thread_.join();
    for (const int connection : silent_)
        close(connection);
    for (const auto& [connection, request] : asking_)
        close(connection);
    close(listener_);
}

void HttpServer::reply(const std::string& path, const std::string& body, const std::string& contentType) {
    replyRaw(path, response("200 OK", "Content-Type: " + contentType, body));
}

void HttpServer::redirect(const std::string& path, const std::string& location) {
    replyRaw(path, response("302 Found", "Location: " + location, ""));
}

void HttpServer::replyForEver(const std::string& path, const std::string& beginning,
                              const std::string& then) {
    const std::lock_guard lock(mutex_);
    responses_[path] = beginning.empty() ? then : beginning;
    endless_[path] = {then, false};
}

void HttpServer::drip(const std::string& path, const std::string& beginning, const std::string& then) {
    replyForEver(path, beginning, then);
    const std::lock_guard lock(mutex_);
    endless_[path].drips = true;
}

void HttpServer::hang(const std::string& path) {
    replyRaw(path, "");
}

void HttpServer::replyRaw(const std::string& path, const std::string& bytes) {
    const std::lock_guard lock(mutex_);
    responses_[pathOf(path)] = bytes;
    endless_.erase(pathOf(path));
}

std::string HttpServer::url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::vector<std::string> HttpServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

std::string HttpServer::lastRequest() const {
    const std::lock_guard lock(mutex_);
    return lastRequest_;
}

void HttpServer::run() {
    while (!stopping_) {
        lookAtSilentOnes();
        std::vector<pollfd> waits{{listener_, POLLIN, 0}};
        for (const auto& [connection, request] : asking_)
            waits.push_back({connection, POLLIN, 0});
        poll(waits.data(), waits.size(), turnMilliseconds);
        if (waits.front().revents != 0)
            if (const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC); connection >= 0)
                asking_[connection];
        for (std::size_t i = 1; i < waits.size(); ++i)
            if (waits[i].revents != 0)
                readMore(waits[i].fd);
    }
}

void HttpServer::readMore(int connection) {
    char buffer[4096];
    const ssize_t count = read(connection, buffer, sizeof buffer);
    if (count <= 0) {
        asking_.erase(connection);
        close(connection);
        return;
    }
    std::string& request = asking_[connection];
    request.append(buffer, static_cast<std::size_t>(count));
    if (request.find("\r\n\r\n") == std::string::npos)
        return;
    const std::string whole = std::move(request);
    asking_.erase(connection);
    serve(connection, whole);
}

void HttpServer::serve(int connection, const std::string& request) {
    const std::string path = requestedPath(request);
    std::string bytes = response("404 Not Found", "Content-Type: text/html", "<p>Nothing here</p>");
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(path);
        lastRequest_ = request;
        if (const auto found = responses_.find(path); found != responses_.end())
            bytes = found->second;
    }
    if (bytes.empty()) {
        silent_.push_back(connection);
        return;
    }
    if (writeAll(connection, bytes))
        goOn(connection, path);
    close(connection);
}

void HttpServer::goOn(int connection, const std::string& path) {
    Endless endless{};
    {
        const std::lock_guard lock(mutex_);
        const auto found = endless_.find(path);
        if (found == endless_.end())
            return;
        endless = found->second;
    }
    // The client sends no more: what arrives is the end.
    while (!stopping_ && !isReadable(connection, endless.drips ? turnMilliseconds : 0))
        if (!writeAll(connection, endless.then))
            return;
}

void HttpServer::lookAtSilentOnes() {
    if (hangingUp_.exchange(false)) {
        for (const int connection : silent_)
            close(connection);
        silent_.clear();
    }
    std::erase_if(silent_, [this](int connection) {
        char byte = 0;
        if (!isReadable(connection, 0) || recv(connection, &byte, 1, MSG_PEEK) > 0)
            return false;
        close(connection);
        ++abandoned_;
        return true;
    });
}

RefusingPort::RefusingPort() : socket_(bindToLoopback(port_)) {}

RefusingPort::~RefusingPort() {
    close(socket_);
}

} // namespace wardlock::test
