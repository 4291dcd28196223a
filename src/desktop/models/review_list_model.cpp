// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/review_list_model.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

#include "desktop/models/app_row.h"
#include "desktop/models/review_reader.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Reviews", text); }

ListedReview listed(const VersionedReview& review, Instant now, const UtcOffsetAt& zone) {
  ListedReview row{reviewTextOf(review, now, zone), {}};
  const ReviewText& text = row.text;
  row.folded = foldedText({text.title, text.body, text.byline, text.reply});
  return row;
}

}  // namespace

QString tallyText(std::size_t fetched, std::size_t matching, const ReviewFilter& filter) {
  const QLocale locale;
  const QString read = locale.toString(static_cast<qulonglong>(fetched));
  if (!filter.isSet()) return tr("Fetched %1").arg(read);
  return tr("Fetched %1, %2 match").arg(read, locale.toString(static_cast<qulonglong>(matching)));
}

ReviewListModel::ReviewListModel(const Clock& clock, UtcOffsetAt zone, QObject* parent)
    : QAbstractListModel(parent), clock_(clock), zone_(std::move(zone)) {}

void ReviewListModel::take(const ReviewReader& reader) {
  const bool areOthers = !goesOnWith(reader);
  if (areOthers) {
    beginResetModel();
    storefronts_.assign(reader.count(), {});
    rows_.clear();
  }
  bool isReplaced = false;
  for (std::size_t i = 0; i < reader.count(); ++i) {
    const ReviewSample& sample = reader.sample(i);
    isReplaced = isReplaced || (storefronts_[i].issue != sample.issue && !areOthers);
    takeSample(storefronts_[i], sample);
  }
  if (areOthers) {
    rows_ = makeRows();
    endResetModel();
    return;
  }
  showRows(makeRows());
  // Headings and ends say how far it has come; reviews are others where they were read anew.
  if (!rows_.empty())
    Q_EMIT dataChanged(index(0), index(rowCount() - 1),
                       {isReplaced ? Qt::SizeHintRole : Qt::DisplayRole});
}

/// Whether the reader has all that is shown, and perhaps more.
bool ReviewListModel::goesOnWith(const ReviewReader& reader) const {
  if (storefronts_.size() != reader.count()) return false;
  for (std::size_t i = 0; i < storefronts_.size(); ++i) {
    const ReviewSample& sample = reader.sample(i);
    if (sample.country != storefronts_[i].country) return false;
    if (sample.reviews.size() < storefronts_[i].reviews.size()) return false;
  }
  return true;
}

void ReviewListModel::takeSample(Storefront& storefront, const ReviewSample& sample) {
  storefront.country = sample.country;
  if (storefront.issue != sample.issue) storefront.reviews.clear();
  storefront.issue = sample.issue;
  const Instant now = clock_.now();
  for (std::size_t i = storefront.reviews.size(); i < sample.reviews.size(); ++i)
    storefront.reviews.push_back(listed(sample.reviews[i], now, zone_));
  storefront.hasMore = sample.next.has_value();
  storefront.isUnderWay = sample.isUnderWay();
  storefront.isRead = std::holds_alternative<Ready>(sample.state);
}

void ReviewListModel::setFilter(const ReviewFilter& filter) {
  filter_ = filter;
  filter_.text = filter.text.simplified().toCaseFolded();
  showRows(makeRows());
  if (!rows_.empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::DisplayRole});
}

bool ReviewListModel::passes(const ListedReview& review) const {
  const bool hasStars =
      filter_.stars.empty() || (review.text.stars && filter_.stars.contains(*review.text.stars));
  return hasStars && review.folded.contains(filter_.text);
}

std::size_t ReviewListModel::matching(const Storefront& storefront) const {
  return static_cast<std::size_t>(std::ranges::count_if(
      storefront.reviews, [this](const ListedReview& each) { return passes(each); }));
}

/// Where a single storefront could not be read, who shows the list says so.
bool ReviewListModel::showsEnd(const Storefront& storefront) const {
  return storefront.hasMore &&
         (storefront.isUnderWay || storefront.isRead || storefronts_.size() > 1);
}

std::vector<ReviewRow> ReviewListModel::makeRows() const {
  std::vector<ReviewRow> rows;
  for (std::size_t s = 0; s < storefronts_.size(); ++s) {
    const Storefront& storefront = storefronts_[s];
    const int at = static_cast<int>(s);
    if (storefronts_.size() > 1) rows.push_back({ReviewRowKind::storefront, at});
    for (std::size_t i = 0; i < storefront.reviews.size(); ++i) {
      if (passes(storefront.reviews[i]))
        rows.push_back({ReviewRowKind::review, at, static_cast<int>(i)});
    }
    if (showsEnd(storefront)) rows.push_back({ReviewRowKind::more, at});
  }
  return rows;
}

/// Rows at the beginning and at the end that are the same stay.
void ReviewListModel::showRows(std::vector<ReviewRow> rows) {
  const auto [before, after] = std::ranges::mismatch(rows_, rows);
  const auto first = before - rows_.begin();
  auto oldEnd = rows_.end();
  auto newEnd = rows.end();
  while (oldEnd - rows_.begin() > first && newEnd - rows.begin() > first &&
         *(oldEnd - 1) == *(newEnd - 1)) {
    --oldEnd;
    --newEnd;
  }
  const int from = static_cast<int>(first);
  if (oldEnd > before) {
    beginRemoveRows({}, from, static_cast<int>(oldEnd - rows_.begin()) - 1);
    rows_.erase(before, oldEnd);
    endRemoveRows();
  }
  if (newEnd > after) {
    beginInsertRows({}, from, static_cast<int>(newEnd - rows.begin()) - 1);
    rows_ = std::move(rows);
    endInsertRows();
  }
}

ReviewTally ReviewListModel::tally() const {
  ReviewTally tally;
  for (const Storefront& storefront : storefronts_) {
    tally.fetched += storefront.reviews.size();
    tally.matching += matching(storefront);
    for (const ListedReview& each : storefront.reviews)
      if (each.text.stars) ++tally.stars.at(static_cast<std::size_t>(*each.text.stars) - 1);
  }
  return tally;
}

std::vector<ReviewRow> ReviewListModel::shownReviews() const {
  std::vector<ReviewRow> shown;
  std::ranges::copy_if(rows_, std::back_inserter(shown),
                       [](const ReviewRow& each) { return each.kind == ReviewRowKind::review; });
  return shown;
}

const ReviewText& ReviewListModel::review(int row) const {
  const ReviewRow& shown = this->row(row);
  return storefronts_.at(static_cast<std::size_t>(shown.storefront))
      .reviews.at(static_cast<std::size_t>(shown.review))
      .text;
}

QString ReviewListModel::headingOf(const Storefront& storefront) const {
  const QString country = QString::fromStdString(storefront.country);
  const std::size_t fetched = storefront.reviews.size();
  if (fetched > 0) {
    return tr("%1 · %2").arg(country, tallyText(fetched, matching(storefront), filter_));
  }
  if (storefront.hasMore) return country;
  return tr("%1 · No reviews published for this app in this storefront").arg(country);
}

bool ReviewListModel::isQuiet(int row) const {
  const ReviewRow& shown = this->row(row);
  return shown.kind == ReviewRowKind::storefront ||
         storefronts_.at(static_cast<std::size_t>(shown.storefront)).isUnderWay;
}

QString ReviewListModel::lineOf(int row) const {
  const ReviewRow& shown = this->row(row);
  const Storefront& storefront = storefronts_.at(static_cast<std::size_t>(shown.storefront));
  if (shown.kind == ReviewRowKind::storefront) return headingOf(storefront);
  if (storefront.isUnderWay) return tr("Reading…");
  const QString country = QString::fromStdString(storefront.country);
  if (!storefront.isRead) return tr("%1 could not be read. Try Again").arg(country);
  return storefronts_.size() == 1 ? tr("Read More") : tr("Read More from %1").arg(country);
}

int ReviewListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ReviewListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
  const bool isReview = row(index.row()).kind == ReviewRowKind::review;
  return isReview ? sentenceOf(review(index.row())) : lineOf(index.row());
}

}  // namespace quillet
