// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace quillet {

/// A server on the loopback interface whose every byte the test decides. It answers one request per
/// connection, each on a thread of its own.
class HttpTestServer {
 public:
  struct Request {
    std::string path;
    std::map<std::string, std::string> headers;  ///< names in lower case

    /// Empty without one.
    [[nodiscard]] std::string header(const std::string& name) const {
      const auto found = headers.find(name);
      return found == headers.end() ? "" : found->second;
    }
  };

  /// The server's end of one connection, closed when the handler returns.
  class Connection {
   public:
    explicit Connection(int socket) : socket_(socket) {}

    /// False once the client has gone.
    bool send(std::string_view bytes) const;
    /// Sends `bytes` one by one with a pause after each.
    void drip(std::string_view bytes, std::chrono::milliseconds pause) const;
    /// Waits until the client hangs up.
    void stall() const;

   private:
    int socket_;
  };

  /// Called on the connection's thread, at any time until the server's end, since Qt repeats a
  /// request whose connection broke: what it needs it captures by value.
  using Handler = std::function<void(const Connection&, const Request&)>;
  using Headers = std::vector<std::pair<std::string, std::string>>;

  HttpTestServer();
  ~HttpTestServer();
  HttpTestServer(const HttpTestServer&) = delete;
  HttpTestServer& operator=(const HttpTestServer&) = delete;

  /// "http://127.0.0.1:PORT" + path.
  [[nodiscard]] std::string url(std::string_view path) const;

  /// Paths without a handler are answered with 404.
  void on(const std::string& path, Handler handler);
  void serve(const std::string& path, int status, const std::string& body, Headers headers = {});
  void redirect(const std::string& path, const std::string& target);

  /// What was asked for at `path`, in order.
  [[nodiscard]] std::vector<Request> requests(const std::string& path);

  /// A status line and headers, "Connection: close" among them, up to the empty line. Without a
  /// Content-Length the body ends with the connection; Qt then sends some requests twice.
  [[nodiscard]] static std::string head(int status, const Headers& headers);

 private:
  void accept();
  void converse(int socket);
  Handler note(const Request& request);

  int listener_ = -1;
  int port_ = 0;
  std::mutex mutex_;
  std::map<std::string, Handler> handlers_;
  std::map<std::string, std::vector<Request>> requests_;
  std::vector<int> sockets_;
  std::vector<std::thread> conversations_;
  std::thread acceptor_;
};

}  // namespace quillet
