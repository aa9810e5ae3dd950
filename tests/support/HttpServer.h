#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace wardlock::test {

/// A web server on the loopback interface for the life of this object, and a proxy that serves every host
/// itself. Connections without a request, as browsers keep some ready, do not delay others.
class HttpServer {
public:
    HttpServer();
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    /// The reply to a path with its query; other paths get a 404 page.
    void reply(const std::string& path, const std::string& body,
               const std::string& contentType = "text/html; charset=utf-8");
    void redirect(const std::string& path, const std::string& location);
    /// A beginning, and then the same again and again for as long as the client reads; the second form at the
    /// pace of a drip.
    void replyForEver(const std::string& path, const std::string& beginning, const std::string& then);
    void drip(const std::string& path, const std::string& beginning, const std::string& then);
    /// The connection stays open and silent.
    void hang(const std::string& path);
    /// Closes the connections that were kept silent until now.
    void hangUp() { hangingUp_ = true; }
    /// Raw bytes of a whole response.
    void replyRaw(const std::string& path, const std::string& response);

    int port() const { return port_; }
    /// "http://127.0.0.1:PORT" and the path.
    std::string url(const std::string& path) const;
    /// The paths asked for so far, and the whole of the last request.
    std::vector<std::string> requests() const;
    std::string lastRequest() const;
    /// How many of the silent connections the other side has closed.
    int abandoned() const { return abandoned_; }

private:
    void run();
    void readMore(int connection);
    void serve(int connection, const std::string& request);
    void goOn(int connection, const std::string& path);
    void lookAtSilentOnes();

    int port_ = 0;
    int listener_;
    std::atomic<bool> stopping_ = false;
    std::atomic<bool> hangingUp_ = false;
    std::atomic<int> abandoned_ = 0;
    mutable std::mutex mutex_;
    struct Endless {
        std::string then;
        bool drips;
    };

    std::map<std::string, std::string> responses_;
    std::map<std::string, Endless> endless_;
    std::vector<std::string> requests_;
    std::string lastRequest_;
    /// The connections whose requests are not whole yet, with what has come of them.
    std::map<int, std::string> asking_;
    std::vector<int> silent_;
    std::thread thread_;
};

/// A port of the loopback interface on which no process listens, nor can during the life of this object.
class RefusingPort {
public:
    RefusingPort();
    ~RefusingPort();
    RefusingPort(const RefusingPort&) = delete;
    RefusingPort& operator=(const RefusingPort&) = delete;

    int port() const { return port_; }

private:
    int port_ = 0;
    int socket_;
};

} // namespace wardlock::test
