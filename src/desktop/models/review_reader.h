// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/models/store_question.h"
#include "queries/review_reading.h"

namespace quillet {

/// Whose reviews are read.
struct ReviewSubject {
  std::int64_t trackId = 0;
  Platform platform = Platform::mac;
};

/// How far the reviews of one storefront have been read, in one order.
struct ReviewSample {
  std::string country;
  std::vector<VersionedReview> reviews;  ///< in the source's order
  int issue = 0;           ///< another one where they are others than before, not more
  bool feedEmpty = false;  ///< whether the feed of recent reviews held none, and these are others
  std::optional<ReviewPlace> next;  ///< absent where there are no more
  ListState state = Ready{};        ///< of the last question; Ready before the first

  [[nodiscard]] bool isUnderWay() const;
};

/// Reads an app's reviews in several storefronts side by side, page by page, one request each. What
/// was read is kept while this lives, so that going back to an order or a storefront asks nothing.
class ReviewReader : public QObject {
  Q_OBJECT

 public:
  /// The gateway and the clock outlive it. `releases` name the versions in the store's order.
  ReviewReader(const ReviewSubject& subject, std::vector<VersionEntry> releases,
               StoreGateway& store, Clock& clock, QObject* parent = nullptr);
  ~ReviewReader() override;

  /// The first reviews of a storefront, in the store's order, that somebody else has read: they
  /// stand until the first page comes, which nobody asks for by itself.
  void know(const std::string& country, const std::vector<AppReview>& first);

  /// Reads these from now on: the first page of those of which nothing is known. What is under way
  /// of others is given up.
  void choose(ReviewOrder order, const std::vector<std::string>& countries);

  [[nodiscard]] std::size_t count() const { return chosen_.size(); }
  /// In the order in which they were chosen.
  [[nodiscard]] const ReviewSample& sample(std::size_t index) const;

  /// The next page; nothing while one is under way, or where there are no more.
  void readMore(std::size_t index);
  /// Asks again what failed.
  void tryAgain();
  /// Waits no longer.
  void stop();

 Q_SIGNALS:
  /// Of a sample, or which there are.
  void changed();

 private:
  struct Source;
  using Key = std::pair<ReviewOrder, std::string>;

  Source& sourceOf(ReviewOrder order, const std::string& country);
  void ask(Source& source);
  void take(Source& source, ReviewBatch batch);

  ReviewSubject subject_;
  std::vector<VersionEntry> releases_;
  StoreGateway& store_;
  Clock& clock_;
  std::map<Key, std::unique_ptr<Source>> sources_;
  std::vector<Source*> chosen_;
};

/// How all stand, in one: the most pressing of those that wait. That one could not be read is told
/// where it is the only one; of several, each says so in its place.
[[nodiscard]] ListState stateOf(const ReviewReader& reader);

}  // namespace quillet
