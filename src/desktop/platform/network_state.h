// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <memory>
#include <string_view>

#include "system/descriptor.h"

class QSocketNotifier;

namespace quillet {

/// Whether the machine has a way out, and the moment at which it has one again. The kernel tells of
/// each change of its interfaces and routes and has the tables at hand, so that nothing is waited
/// for: what asks a service on a bus would wait for that. On other systems than Linux nothing is
/// ever told.
class NetworkState : public QObject {
  Q_OBJECT

 public:
  /// How long a way out has to be there to count: names are found a moment after routes are.
  static constexpr std::chrono::milliseconds kSettles{1500};

  explicit NetworkState(std::chrono::milliseconds settles = kSettles);
  ~NetworkState() override;

  /// Watches from now on. Where the kernel does not let us, nothing is told.
  void begin();

  /// Whether there is a way out now, as whoever watches has seen it.
  void take(bool isConnected);

 Q_SIGNALS:
  /// There is a way out again after there was none.
  void returned();

 private:
  void listen();

  Descriptor routes_;
  std::unique_ptr<QSocketNotifier> news_;
  QTimer settling_;
  bool isConnected_ = true;
};

/// Whether tables of routes, as the kernel writes them for IPv4 (/proc/net/route) and IPv6
/// (/proc/net/ipv6_route), hold one to everywhere that can be used.
[[nodiscard]] bool hasWayOut(std::string_view routes, std::string_view routesOfIPv6);

}  // namespace quillet
