// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/server.h"

#include <httplib.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <atomic>
#include <mutex>
#include <thread>
#include <unordered_map>

#include "base/text.h"
#include "sandbox/endpoints.h"

namespace quillet::sandbox {

namespace {

constexpr const char* kHost = "127.0.0.1";
constexpr const char* kFaultsPath = "/faults";
constexpr std::chrono::seconds kLongestStall{60};
constexpr std::chrono::seconds kBetweenDrops{5};
constexpr std::chrono::milliseconds kStallStep{50};
constexpr std::size_t kHugeBody = std::size_t{70} * 1024 * 1024;
constexpr std::size_t kPiece = std::size_t{64} * 1024;

// Each open connection holds a thread of the server, for five seconds after its last answer too.
// With the library's eight, a dozen commands at once would wait for each other that long.
constexpr std::size_t kConnections = 128;

std::string addressOf(int port) { return fmt::format("http://{}:{}", kHost, port); }

/// The library would set SO_REUSEPORT, with which two stores share a port and take turns.
void shareNoPort(int socket) {
  const int yes = 1;
  ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

Request requestOf(const httplib::Request& asked, const std::string& pictureHost) {
  return {.path = asked.path,
          .query = {asked.params.begin(), asked.params.end()},
          .userAgent = asked.get_header_value("User-Agent"),
          .pictureHost = pictureHost};
}

/// Files lie on a server of their own, which spares whoever has the same one a second copy.
Answer tagged(Answer answer, const httplib::Request& asked) {
  const bool isFile = asked.path.starts_with("/file/") && answer.status == 200;
  if (!isFile) return answer;
  const std::string tag = fmt::format("\"{:x}\"", std::hash<std::string>{}(answer.body));
  if (asked.get_header_value("If-None-Match") == tag)
    answer = {.status = 304, .contentType = answer.contentType};
  answer.headers.emplace_back("ETag", tag);
  return answer;
}

/// The pictures that were drawn, up to some fifty megabytes.
class DrawnPictures {
 public:
  Answer answerTo(const SampleStore& store, Request request) {
    const std::string path = request.path;
    if (std::optional<Answer> kept = find(path)) return std::move(*kept);
    Answer answer = sandbox::answerTo(store, std::move(request));
    if (answer.status == 200) keep(path, answer);
    return answer;
  }

 private:
  static constexpr std::size_t kMostBytes = 50'000'000;

  std::optional<Answer> find(const std::string& path) {
    const std::lock_guard lock(mutex_);
    const auto kept = kept_.find(path);
    return kept == kept_.end() ? std::nullopt : std::optional(kept->second);
  }

  void keep(const std::string& path, const Answer& answer) {
    const std::lock_guard lock(mutex_);
    if (bytes_ + answer.body.size() > kMostBytes) {
      kept_.clear();
      bytes_ = 0;
    }
    if (kept_.emplace(path, answer).second) bytes_ += answer.body.size();
  }

  std::mutex mutex_;
  std::unordered_map<std::string, Answer> kept_;  // by path
  std::size_t bytes_ = 0;
};

}  // namespace

class Server::Implementation {
 public:
  Implementation(const SampleStore& store, Options options)
      : store_(store), plan_(std::move(options.faults)), log_(options.log) {
    server_.set_tcp_nodelay(true);
    server_.set_keep_alive_max_count(1'000'000);
    server_.new_task_queue = [] { return new httplib::ThreadPool(kConnections); };
    server_.set_socket_options([this](int socket) {
      socket_ = socket;
      shareNoPort(socket);
    });
    server_.Get(".*", [this](const httplib::Request& asked, httplib::Response& response) {
      serve(asked, response);
    });
    server_.Put(kFaultsPath, [this](const httplib::Request& asked, httplib::Response& response) {
      changeFaults(asked.body, response);
    });
    port_ = bound(options);
    // The library lets five wait; the sixth would try again after a second.
    ::listen(socket_, SOMAXCONN);
    if (options.hasPictures) pictureHost_ = addressOf(port_);
    thread_ = std::thread([this] { server_.listen_after_bind(); });
    while (!server_.is_running()) std::this_thread::yield();
  }

  ~Implementation() {
    isEnding_ = true;
    server_.stop();
    thread_.join();
  }

  [[nodiscard]] int port() const { return port_; }

 private:
  int bound(const Options& options) {
    const int wished = options.port != 0 ? options.port : options.usualPort;
    if (wished != 0 && server_.bind_to_port(kHost, wished)) return wished;
    const int any = options.port != 0 ? 0 : server_.bind_to_any_port(kHost);
    if (any <= 0) throw CannotListen(fmt::format("port {} is not to be had", options.port));
    return any;
  }

  void changeFaults(const std::string& text, httplib::Response& response) {
    try {
      FaultPlan plan(parseFaults(text));
      const std::lock_guard lock(mutex_);
      plan_ = std::move(plan);
    } catch (const BadFault& bad) {
      response.status = 400;
      response.set_content(std::string(bad.what()) + '\n', "text/plain");
    }
  }

  std::optional<Fault> nextFault(std::string_view path) {
    const std::lock_guard lock(mutex_);
    return plan_.next(path);
  }

  void serve(const httplib::Request& asked, httplib::Response& response) {
    const auto start = std::chrono::steady_clock::now();
    const std::optional<Fault> struck = nextFault(asked.path);
    const Fault fault = struck.value_or(Fault{});
    pause(fault.delay);
    Request request = requestOf(asked, pictureHost_);
    if (fault.kind == FaultKind::stale) request.freshness = Freshness::stale;
    Answer answer = asked.path.starts_with("/image/")
                        ? pictures_.answerTo(store_, std::move(request))
                        : answerTo(store_, std::move(request));
    answer =
        struck ? damaged(std::move(answer), fault, asked.target) : tagged(std::move(answer), asked);
    response.status = answer.status;
    for (const auto& [name, value] : answer.headers) response.set_header(name, value);
    log(asked, answer, std::chrono::steady_clock::now() - start);
    send(response, std::move(answer), fault.kind);
  }

  /// The body goes out through a provider of known length, which the library never compresses.
  void send(httplib::Response& response, Answer answer, FaultKind kind) {
    if (kind == FaultKind::hugeBody) return sendHuge(response, answer.contentType);
    const std::size_t size = answer.body.size();
    if (size == 0) return response.set_content("", answer.contentType);
    const auto body = std::make_shared<const std::string>(std::move(answer.body));
    const std::size_t sent = kind == FaultKind::drop    ? size / 2
                             : kind == FaultKind::stall ? 0
                                                        : size;
    const auto provide = [this, body, sent, kind](std::size_t offset, std::size_t length,
                                                  httplib::DataSink& sink) {
      if (kind == FaultKind::drip && offset > 0) pause(kBetweenDrops);
      if (kind == FaultKind::drip) return !isEnding_ && sink.write(body->data() + offset, 1);
      if (offset < sent)
        return sink.write(body->data() + offset, std::min({length, sent - offset, kPiece}));
      if (kind == FaultKind::stall) stall(sink);
      return false;  // closes the connection
    };
    response.set_content_provider(size, answer.contentType, provide);
  }

  /// In pieces without a length beforehand, so that only counting tells how much it is.
  static void sendHuge(httplib::Response& response, const std::string& contentType) {
    const auto provide = [piece = std::string(kPiece, ' ')](std::size_t offset,
                                                            httplib::DataSink& sink) {
      if (offset >= kHugeBody) {
        sink.done();
        return true;
      }
      return sink.write(piece.data(), piece.size());
    };
    response.set_chunked_content_provider(contentType, provide);
  }

  void stall(const httplib::DataSink& sink) {
    const auto end = std::chrono::steady_clock::now() + kLongestStall;
    while (!isEnding_ && sink.is_writable() && std::chrono::steady_clock::now() < end)
      std::this_thread::sleep_for(kStallStep);
  }

  /// Sleeps in steps, so that a store that is told to end does.
  void pause(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (!isEnding_ && std::chrono::steady_clock::now() < end) {
      const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
          end - std::chrono::steady_clock::now());
      std::this_thread::sleep_for(std::min(kStallStep, left + std::chrono::milliseconds(1)));
    }
  }

  void log(const httplib::Request& asked, const Answer& answer,
           std::chrono::steady_clock::duration time) {
    if (!log_) return;
    const auto ms = std::chrono::duration<double, std::milli>(time).count();
    const std::string line =
        fmt::format("{} {} {} {} bytes {:.1f} ms\n", printable(asked.method),
                    printable(asked.target), answer.status, answer.body.size(), ms);
    std::fwrite(line.data(), 1, line.size(), log_);  // one call: lines of two threads do not mix
  }

  const SampleStore& store_;
  std::mutex mutex_;  // guards plan_
  FaultPlan plan_;
  std::FILE* log_;
  std::atomic<bool> isEnding_ = false;
  httplib::Server server_;
  int port_ = 0;
  std::string pictureHost_;  ///< empty: none
  DrawnPictures pictures_;
  int socket_ = -1;  ///< where it listens; the server owns it
  std::thread thread_;
};

Server::Server(const SampleStore& store, Options options)
    : implementation_(std::make_unique<Implementation>(store, std::move(options))) {}

Server::~Server() = default;

std::string Server::address() const { return addressOf(implementation_->port()); }

}  // namespace quillet::sandbox
