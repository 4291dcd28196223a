// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/single_instance.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QTimer>
#include <cerrno>
#include <chrono>
#include <utility>

#include "desktop/instance_message.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

// Far more than the few milliseconds that an answer takes, even of a busy window.
constexpr std::chrono::milliseconds kAnswerTimeout = 5s;
// After it a sender that has not finished its message is sent away.
constexpr std::chrono::milliseconds kMessageTimeout = 5s;
// Holds the largest message.
constexpr qint64 kReadBuffer = qint64{128} * 1024;
// The first one may be on its way out just when it is found.
constexpr int kAttempts = 3;

constexpr char kTaken = '+';
constexpr mode_t kOwnerOnly = 0600;
constexpr int kHashLength = 16;

/// Held while it is found out who is first. Waits for its turn; without a file there is no turn to
/// wait for.
class StartLock {
 public:
  explicit StartLock(const fs::path& socket)
      : descriptor_(
            ::open((socket.string() + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kOwnerOnly)) {
    while (descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX) != 0 && errno == EINTR) continue;
  }
  StartLock(const StartLock&) = delete;
  StartLock& operator=(const StartLock&) = delete;
  ~StartLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

 private:
  int descriptor_;
};

QString nameOf(const fs::path& path) { return QString::fromStdString(path.string()); }

int wholeMilliseconds(std::chrono::milliseconds duration) {
  return static_cast<int>(duration.count());
}

/// A socket's path has hardly more than a hundred bytes, so the directory goes in as a hash.
std::string socketNameFor(const fs::path& dataDirectory) {
  const std::string path = (dataDirectory / "").lexically_normal().string();
  const QByteArray hash = QCryptographicHash::hash(
      QByteArrayView(path.data(), static_cast<qsizetype>(path.size())), QCryptographicHash::Sha256);
  return fmt::format("quillet-{}.socket", hash.toHex().left(kHashLength).toStdString());
}

/// Sends the arguments and waits for the sign that they were taken; absent when the other end went
/// away before.
std::optional<SingleInstance::Role> handOver(QLocalSocket& socket, const std::string& message) {
  if (socket.error() == QLocalSocket::SocketTimeoutError) return SingleInstance::Role::unanswered;
  socket.write(message.data(), static_cast<qint64>(message.size()));
  while (socket.bytesToWrite() > 0) {
    if (!socket.waitForBytesWritten(wholeMilliseconds(kAnswerTimeout))) break;
  }
  char answer = 0;
  if (socket.waitForReadyRead(wholeMilliseconds(kAnswerTimeout)) && socket.getChar(&answer) &&
      answer == kTaken) {
    return SingleInstance::Role::second;
  }
  if (socket.state() == QLocalSocket::ConnectedState) return SingleInstance::Role::unanswered;
  return {};
}

}  // namespace

fs::path instanceSocket(const Environment& environment, const Places& places) {
  const std::string name = socketNameFor(places.dataDirectory);
  const fs::path runtime = environment.get("XDG_RUNTIME_DIR").value_or("");
  std::error_code error;
  if (runtime.is_absolute() && fs::is_directory(runtime, error)) return runtime / name;
  return places.dataDirectory / name;
}

SingleInstance::SingleInstance(fs::path socket) : socket_(std::move(socket)) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, &SingleInstance::takeConnections);
}

/// Under the lock, since closing removes the socket by its name: it must not be another's by then.
SingleInstance::~SingleInstance() {
  if (!server_.isListening()) return;
  const StartLock lock(socket_);
  server_.close();
}

SingleInstance::Role SingleInstance::start(const std::vector<std::string>& arguments) {
  std::error_code error;
  fs::create_directories(socket_.parent_path(), error);
  // Arguments beyond all measure are left behind, and the window comes to the front all the same.
  const std::string message = instanceMessage(arguments).value_or(*instanceMessage({}));
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    QLocalSocket socket;
    if (!findsFirst(socket)) return Role::first;
    if (const auto role = handOver(socket, message)) return *role;
  }
  return Role::unanswered;
}

/// Connects to the one that listens; becomes the one where nobody does. One that takes no more
/// connections is there all the same.
bool SingleInstance::findsFirst(QLocalSocket& socket) {
  const StartLock lock(socket_);
  socket.connectToServer(nameOf(socket_));
  if (socket.waitForConnected(wholeMilliseconds(kAnswerTimeout))) return true;
  if (socket.error() == QLocalSocket::SocketTimeoutError) return true;
  listen();
  return false;
}

/// A socket that a crash left behind is replaced.
void SingleInstance::listen() {
  QLocalServer::removeServer(nameOf(socket_));
  if (server_.listen(nameOf(socket_))) return;
  qWarning("Other starts cannot be noticed: %s", qPrintable(server_.errorString()));
}

void SingleInstance::takeConnections() {
  while (QLocalSocket* connection = server_.nextPendingConnection()) {
    connection->setReadBufferSize(kReadBuffer);
    connect(connection, &QLocalSocket::readyRead, this, [this, connection] { read(connection); });
    connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
    QTimer::singleShot(kMessageTimeout, connection, [connection] { connection->abort(); });
    if (connection->bytesAvailable() > 0) read(connection);
  }
}

void SingleInstance::read(QLocalSocket* connection) {
  const QByteArray received = connection->peek(connection->bytesAvailable());
  const auto message =
      readInstanceMessage({received.data(), static_cast<std::size_t>(received.size())});
  if (std::holds_alternative<IncompleteMessage>(message)) return;
  disconnect(connection, &QLocalSocket::readyRead, this, nullptr);
  const auto* arguments = std::get_if<std::vector<std::string>>(&message);
  if (arguments == nullptr) {
    connection->abort();
    return;
  }
  connection->putChar(kTaken);
  connection->flush();  // whoever hears of the arguments may end the application
  connection->disconnectFromServer();
  Q_EMIT argumentsReceived(*arguments);
}

}  // namespace quillet
