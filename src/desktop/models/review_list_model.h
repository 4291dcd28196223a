// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>
#include <array>
#include <set>
#include <string>
#include <vector>

#include "desktop/models/review_text.h"
#include "net/clock.h"

namespace quillet {

class ReviewReader;
struct ReviewSample;

inline constexpr int kMostStars = 5;

/// Which of the reviews that were read are shown.
struct ReviewFilter {
  std::set<int> stars;  ///< empty lets all pass, also those without stars
  QString text;         ///< anywhere in a review, case ignored

  [[nodiscard]] bool isSet() const { return !stars.empty() || !text.isEmpty(); }
};

/// What was read and what of it is shown.
struct ReviewTally {
  std::size_t fetched = 0;
  std::size_t matching = 0;
  std::array<std::size_t, kMostStars> stars{};  ///< of all that were read, from one star to five
};

/// One of many reviews, ready to be shown and searched.
struct ListedReview {
  ReviewText text;
  QString folded;
};

/// What a row of reviews is.
enum class ReviewRowKind {
  storefront,  ///< a heading, where there are several
  review,
  more,  ///< the end of a storefront that goes on: what is being read, or can be
};

struct ReviewRow {
  ReviewRowKind kind = ReviewRowKind::review;
  int storefront = 0;
  int review = -1;  ///< its place in the storefront; -1 for rows of another kind

  friend bool operator==(const ReviewRow&, const ReviewRow&) = default;
};

/// The reviews that a reader has read, storefront after storefront, as far as a filter lets them
/// through. What comes, comes as rows between those that stay.
class ReviewListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  ReviewListModel(const Clock& clock, UtcOffsetAt zone, QObject* parent = nullptr);

  /// Takes over what the reader has now.
  void take(const ReviewReader& reader);
  void setFilter(const ReviewFilter& filter);
  [[nodiscard]] const ReviewFilter& filter() const { return filter_; }

  [[nodiscard]] ReviewTally tally() const;
  [[nodiscard]] const ReviewRow& row(int row) const {
    return rows_.at(static_cast<std::size_t>(row));
  }
  /// Those that are shown, as places: storefront and review, as the reader has them.
  [[nodiscard]] std::vector<ReviewRow> shownReviews() const;
  /// Of a row that is a review.
  [[nodiscard]] const ReviewText& review(int row) const;
  /// Whether a row of another kind is only told, and cannot be pressed.
  [[nodiscard]] bool isQuiet(int row) const;
  /// What a row of another kind says.
  [[nodiscard]] QString lineOf(int row) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  struct Storefront {
    std::string country;
    int issue = -1;
    std::vector<ListedReview> reviews;
    bool hasMore = false;
    bool isUnderWay = false;
    bool isRead = false;  ///< whether it is known what it has
  };

  [[nodiscard]] bool goesOnWith(const ReviewReader& reader) const;
  [[nodiscard]] bool passes(const ListedReview& review) const;
  [[nodiscard]] std::size_t matching(const Storefront& storefront) const;
  [[nodiscard]] bool showsEnd(const Storefront& storefront) const;
  [[nodiscard]] std::vector<ReviewRow> makeRows() const;
  void showRows(std::vector<ReviewRow> rows);
  void takeSample(Storefront& storefront, const ReviewSample& sample);
  [[nodiscard]] QString headingOf(const Storefront& storefront) const;

  const Clock& clock_;
  UtcOffsetAt zone_;
  ReviewFilter filter_;
  std::vector<Storefront> storefronts_;
  std::vector<ReviewRow> rows_;
};

/// "Fetched 60, 12 match."; without a filter "Fetched 60."
[[nodiscard]] QString tallyText(std::size_t fetched, std::size_t matching,
                                const ReviewFilter& filter);

}  // namespace quillet
