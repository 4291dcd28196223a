// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocalServer>
#include <QObject>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "system/environment.h"
#include "system/places.h"

class QLocalSocket;

namespace quillet {

/// Where the instances that share a data directory meet: in the user's runtime directory, or in
/// the data directory itself where there is none. Nothing is created.
[[nodiscard]] std::filesystem::path instanceSocket(const Environment& environment,
                                                   const Places& places);

/// One running application for each socket: the first start listens there, a later one hands its
/// arguments over and ends. A lock file beside the socket puts starts of the same moment in order;
/// the system drops it with the process, so that a crash holds nobody up.
class SingleInstance : public QObject {
  Q_OBJECT

 public:
  enum class Role {
    first,       ///< goes on, and hears of those to come
    second,      ///< handed its arguments over
    unanswered,  ///< another one runs but does not answer within seconds
  };

  explicit SingleInstance(std::filesystem::path socket);
  ~SingleInstance() override;

  /// Called once, before the event loop runs; it may wait for another instance's answer. Where
  /// nothing can be made beside the socket every start is the first.
  [[nodiscard]] Role start(const std::vector<std::string>& arguments);

 Q_SIGNALS:
  /// A later start handed these over. Other messages are ignored.
  void argumentsReceived(const std::vector<std::string>& arguments);

 private:
  [[nodiscard]] bool findsFirst(QLocalSocket& socket);
  void listen();
  void takeConnections();
  void read(QLocalSocket* connection);

  std::filesystem::path socket_;
  QLocalServer server_;
};

}  // namespace quillet
