// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <set>
#include <string>
#include <vector>

#include "desktop/models/view_world.h"
#include "net/stop_token.h"

namespace quillet {

/// Asks the store for the records of apps that are seen without a picture, for price data has none,
/// and keeps them in the library: a hundred in a request, at most one in ten seconds and none where
/// the store wants fewer, after everybody else's. No app is asked for twice in a run.
class DealArtwork : public QObject {
  Q_OBJECT

 public:
  explicit DealArtwork(const ViewWorld& world) : world_(world) {}
  ~DealArtwork() override { stop_.requestStop(); }

  /// The apps that are seen by now, and no others.
  void want(std::vector<AppKey> apps);

 private:
  /// Apps of one storefront, for one request.
  struct Batch {
    std::string country;
    std::vector<std::int64_t> apps;
  };

  [[nodiscard]] Batch takeBatch();
  static Task<> run(QPointer<DealArtwork> artwork, StopToken stop);
  static Task<std::chrono::milliseconds> ask(QPointer<DealArtwork> artwork, Batch batch,
                                             StopToken stop);

  ViewWorld world_;
  std::vector<AppKey> wanted_;
  std::set<AppKey> asked_;
  bool isRunning_ = false;
  StopSource stop_;
};

}  // namespace quillet
