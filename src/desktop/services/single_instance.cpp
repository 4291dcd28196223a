// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/single_instance.h"

#include <QLocalSocket>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <utility>

#include "desktop/services/arguments.h"
#include "desktop/services/instance_message.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

// After it a sender that has not finished its message is sent away.
constexpr std::chrono::milliseconds kMessageTimeout = 5s;
// Holds the largest message.
constexpr qint64 kReadBuffer = qint64{128} * 1024;

}  // namespace

SingleInstance::SingleInstance(InstanceClaim claim) : claim_(std::move(claim)) {
  connect(&server_, &QLocalServer::newConnection, this, &SingleInstance::takeConnections);
  Descriptor listener = claim_.takeListener();
  if (listener.isOpen() && server_.listen(qintptr{listener.get()})) {
    (void)listener.release();
    return;
  }
  qWarning("Other starts cannot be noticed: %s", qPrintable(server_.errorString()));
}

void SingleInstance::serve(Windows windows) {
  windows_ = windows;
  for (const Waiting& start : std::exchange(waiting_, {})) take(start);
}

void SingleInstance::close() {
  waiting_.clear();
  claim_.removeSocket();
  server_.close();
  for (QLocalSocket* connection : server_.findChildren<QLocalSocket*>()) connection->abort();
}

void SingleInstance::takeConnections() {
  while (QLocalSocket* connection = server_.nextPendingConnection()) {
    connection->setReadBufferSize(kReadBuffer);
    connect(connection, &QLocalSocket::readyRead, this, [this, connection] { read(connection); });
    connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
    QTimer::singleShot(kMessageTimeout, connection, [this, connection] {
      if (!isWaiting(connection)) connection->abort();
    });
    if (connection->bytesAvailable() > 0) read(connection);
  }
}

bool SingleInstance::isWaiting(const QLocalSocket* connection) const {
  return std::ranges::any_of(waiting_,
                             [&](const Waiting& start) { return start.connection == connection; });
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
  if (windows_) {
    take({connection, *arguments});
    return;
  }
  connection->putChar(kInstanceKeepsWaiting);
  waiting_.push_back({connection, *arguments});
}

/// One that has gone away meanwhile has said that nobody answered.
void SingleInstance::take(const Waiting& start) {
  if (start.connection.isNull() || start.connection->state() != QLocalSocket::ConnectedState)
    return;
  const bool lacksWindow =
      windows_ == Windows::impossible && !parseDesktopArguments(start.arguments).isBackground;
  start.connection->putChar(lacksWindow ? kInstanceCannotShow : kInstanceTakes);
  start.connection->flush();  // whoever hears of the arguments may end the application
  start.connection->disconnectFromServer();
  Q_EMIT argumentsReceived(start.arguments);
}

}  // namespace quillet
