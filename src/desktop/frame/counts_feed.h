// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QTimer>

#include "desktop/services/library_gateway.h"
#include "library/library_counts.h"

namespace quillet {

/// Keeps how much the library holds as the library is.
class CountsFeed : public QObject {
  Q_OBJECT

 public:
  /// `known`: what is told until the library is open, which outlives the feed.
  CountsFeed(LibraryGateway& library, LibraryCounts known);

  [[nodiscard]] const LibraryCounts& counts() const { return counts_; }

 Q_SIGNALS:
  void changed();

 private:
  void take(const LibraryChanges& changes);
  static Task<> read(QPointer<CountsFeed> feed);

  LibraryGateway& library_;
  LibraryCounts counts_;
  QTimer again_;  ///< changes come in bursts
};

}  // namespace quillet
