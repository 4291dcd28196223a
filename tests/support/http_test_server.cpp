// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/http_test_server.h"

#include <arpa/inet.h>
#include <fmt/format.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/text.h"

namespace quillet {
namespace {

int boundSocket() {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    throw std::runtime_error("The test server finds no port");
  }
  return socket;
}

int portOf(int socket) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

/// The bytes up to the empty line; nothing when the client hangs up before.
std::string readHead(int socket) {
  std::string head;
  std::array<char, 4096> piece;
  while (head.find("\r\n\r\n") == std::string::npos) {
    const auto count = ::recv(socket, piece.data(), piece.size(), 0);
    if (count <= 0) return {};
    head.append(piece.data(), static_cast<std::size_t>(count));
  }
  return head;
}

HttpTestServer::Request parseHead(std::string_view head) {
  HttpTestServer::Request request;
  request.path = split(head, ' ').at(1);
  for (const std::string_view line : split(head, '\n')) {
    const auto colon = line.find(": ");
    if (colon == std::string_view::npos) continue;
    request.headers[lowerAscii(line.substr(0, colon))] = trimmed(line.substr(colon + 1));
  }
  return request;
}

}  // namespace

bool HttpTestServer::Connection::send(std::string_view bytes) const {
  while (!bytes.empty()) {
    const auto count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

void HttpTestServer::Connection::drip(std::string_view bytes,
                                      std::chrono::milliseconds pause) const {
  for (std::size_t i = 0; i < bytes.size() && send(bytes.substr(i, 1)); ++i) {
    std::this_thread::sleep_for(pause);
  }
}

void HttpTestServer::Connection::stall() const {
  std::array<char, 64> ignored;
  while (::recv(socket_, ignored.data(), ignored.size(), 0) > 0) {
  }
}

HttpTestServer::HttpTestServer() : listener_(boundSocket()), port_(portOf(listener_)) {
  ::listen(listener_, SOMAXCONN);
  acceptor_ = std::thread([this] { accept(); });
}

HttpTestServer::~HttpTestServer() {
  ::shutdown(listener_, SHUT_RDWR);
  acceptor_.join();
  ::close(listener_);
  {
    const std::lock_guard lock(mutex_);
    for (const int socket : sockets_) ::shutdown(socket, SHUT_RDWR);
  }
  for (std::thread& conversation : conversations_) conversation.join();
}

std::string HttpTestServer::url(std::string_view path) const {
  return fmt::format("http://127.0.0.1:{}{}", port_, path);
}

void HttpTestServer::on(const std::string& path, Handler handler) {
  const std::lock_guard lock(mutex_);
  handlers_[path] = std::move(handler);
}

void HttpTestServer::serve(const std::string& path, int status, const std::string& body,
                           Headers headers) {
  headers.emplace_back("Content-Length", std::to_string(body.size()));
  on(path, [answer = head(status, headers) + body](const Connection& connection, const Request&) {
    connection.send(answer);
  });
}

void HttpTestServer::redirect(const std::string& path, const std::string& target) {
  serve(path, 302, "", {{"Location", target}});
}

std::vector<HttpTestServer::Request> HttpTestServer::requests(const std::string& path) {
  const std::lock_guard lock(mutex_);
  return requests_[path];
}

std::string HttpTestServer::head(int status, const Headers& headers) {
  std::string text = fmt::format("HTTP/1.1 {} Status\r\nConnection: close\r\n", status);
  for (const auto& [name, value] : headers) text += fmt::format("{}: {}\r\n", name, value);
  return text + "\r\n";
}

void HttpTestServer::accept() {
  for (;;) {
    const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0) return;
    const std::lock_guard lock(mutex_);
    sockets_.push_back(socket);
    conversations_.emplace_back([this, socket] { converse(socket); });
  }
}

void HttpTestServer::converse(int socket) {
  if (const std::string received = readHead(socket); !received.empty()) {
    const Request request = parseHead(received);
    note(request)(Connection(socket), request);
  }
  const std::lock_guard lock(mutex_);
  std::erase(sockets_, socket);
  ::close(socket);
}

HttpTestServer::Handler HttpTestServer::note(const Request& request) {
  const std::lock_guard lock(mutex_);
  requests_[request.path].push_back(request);
  const auto handler = handlers_.find(request.path);
  if (handler != handlers_.end()) return handler->second;
  return [](const auto& to, const auto&) { to.send(head(404, {{"Content-Length", "0"}})); };
}

}  // namespace quillet
