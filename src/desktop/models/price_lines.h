// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <set>
#include <vector>

#include "desktop/models/app_list_model.h"
#include "desktop/services/library_gateway.h"
#include "net/clock.h"

namespace quillet {

/// The lines of prices of those rows of a list that are seen: read from the library once for each,
/// and anew where its recorded prices grew.
class PriceLines : public QObject {
  Q_OBJECT

 public:
  /// All of them outlive it.
  PriceLines(AppListModel& rows, LibraryGateway& library, Clock& clock);

  /// The apps whose rows are seen; the lines of all others are forgotten.
  void show(std::set<AppKey> seen);
  /// As if none had been seen: for other rows.
  void forget();
  /// These prices, or any, changed: follow() reads them.
  void note(const LibraryChanges& changes);
  void noteAll();
  void follow();

 private:
  static Task<> read(QPointer<PriceLines> lines, std::vector<AppKey> apps);

  AppListModel& rows_;
  LibraryGateway& library_;
  Clock& clock_;
  std::set<AppKey> seen_;
  std::set<AppKey> asked_;  ///< of those seen
};

}  // namespace quillet
