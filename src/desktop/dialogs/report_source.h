// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/models/review_reader.h"
#include "desktop/page/page_controller.h"
#include "export/app_report.h"

namespace quillet {

/// What a report on an app is made of: what the library and the store know of it in one storefront,
/// every price that was recorded there, and as many of its reviews as are wanted.
class ReportSource : public QObject {
  Q_OBJECT

 public:
  explicit ReportSource(const ViewWorld& world);
  ~ReportSource() override;

  void show(const AppKey& app);
  /// Reads on until there are so many, or no more.
  void wantReviews(std::size_t count);

  /// With no more reviews than are wanted; absent where nothing is known of the app.
  [[nodiscard]] std::optional<AppKnowledge> known() const;
  /// As far as anybody told; empty otherwise.
  [[nodiscard]] QString name() const;
  /// Whether the store was asked, and answered or did not do so for long.
  [[nodiscard]] bool isSettled() const { return page_.isSettled(); }
  /// How many reviews are there while more are read; absent where none are.
  [[nodiscard]] std::optional<std::size_t> reviewsSoFar() const;
  /// How the questions stand, in one.
  [[nodiscard]] ListState state() const;
  void act(StripAction action);

 Q_SIGNALS:
  /// Of what is known, or of a state.
  void changed();

 private:
  static Task<> readPrices(QPointer<ReportSource> source, AppKey app);

  void takeFacts();
  void beginReviews(const StoreFacts& store);
  void readOn();

  ViewWorld world_;
  PageController page_;
  std::vector<RecordedPrice> prices_;
  std::unique_ptr<ReviewReader> reviews_;  ///< null before the catalog told the first
  std::size_t wanted_ = 0;
  bool isStopped_ = false;  ///< the user waits for no more reviews
};

}  // namespace quillet
