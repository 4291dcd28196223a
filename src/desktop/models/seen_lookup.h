// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <string>
#include <vector>

#include "desktop/models/view_world.h"
#include "net/stop_token.h"

namespace quillet {

/// Asks the store for the records of apps that are seen and of which too little is known, and keeps
/// them in the library: a hundred in a request, at most one in ten seconds and none where the store
/// wants fewer, after everybody else's. No app is asked for twice in a day.
class SeenLookup : public QObject {
  Q_OBJECT

 public:
  explicit SeenLookup(const ViewWorld& world) : world_(world) {}
  ~SeenLookup() override { stop_.requestStop(); }

  /// The apps that are seen by now, and no others.
  void want(std::vector<AppKey> apps);

 private:
  /// Apps of one storefront, for one request.
  struct Batch {
    std::string country;
    std::vector<std::int64_t> apps;
  };

  [[nodiscard]] Batch takeBatch();
  static Task<> run(QPointer<SeenLookup> lookup, StopToken stop);
  static Task<std::chrono::milliseconds> ask(QPointer<SeenLookup> lookup, Batch batch,
                                             StopToken stop);

  ViewWorld world_;
  std::vector<AppKey> wanted_;
  std::map<AppKey, Instant> asked_;  ///< when, within the last day
  bool isRunning_ = false;
  StopSource stop_;
};

}  // namespace quillet
