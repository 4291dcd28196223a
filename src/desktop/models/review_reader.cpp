// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/review_reader.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>

namespace quillet {

struct ReviewReader::Source {
  ReviewOrder order;
  ReviewSample sample;
  bool isRead = false;  ///< whether its reviews are pages, not what somebody else has read
  bool isChosen = false;
  StoreQuestion question;
};

bool ReviewSample::isUnderWay() const {
  return std::holds_alternative<Loading>(state) || std::holds_alternative<BudgetWait>(state) ||
         std::holds_alternative<Throttled>(state);
}

ReviewReader::ReviewReader(const ReviewSubject& subject, std::vector<VersionEntry> releases,
                           StoreGateway& store, Clock& clock, QObject* parent)
    : QObject(parent),
      subject_(subject),
      releases_(std::move(releases)),
      store_(store),
      clock_(clock) {}

ReviewReader::~ReviewReader() = default;

ReviewReader::Source& ReviewReader::sourceOf(ReviewOrder order, const std::string& country) {
  std::unique_ptr<Source>& source = sources_[{order, country}];
  if (source) return *source;
  const ReviewPlace first{subject_.trackId, subject_.platform, country, order};
  source.reset(
      new Source{order, {.country = country, .next = first}, false, false, {store_, clock_}});
  connect(&source->question, &StoreQuestion::stateChanged, this, [this, source = source.get()] {
    source->sample.state = source->question.state();
    if (source->isChosen) Q_EMIT changed();
  });
  return *source;
}

void ReviewReader::know(const std::string& country, const std::vector<AppReview>& first) {
  ReviewSample& sample = sourceOf(ReviewOrder::asTheStoreHasThem, country).sample;
  for (const AppReview& review : first) sample.reviews.push_back({review, {}});
  addVersions(sample.reviews, releases_);
  // Fewer than fit into a list are all there are.
  if (first.size() < kEnrichmentReviews) sample.next.reset();
}

void ReviewReader::choose(ReviewOrder order, const std::vector<std::string>& countries) {
  const std::vector<Source*> before = std::exchange(chosen_, {});
  for (Source* source : before) source->isChosen = false;
  for (const std::string& country : countries) {
    Source& source = sourceOf(order, country);
    source.isChosen = true;
    chosen_.push_back(&source);
  }
  for (const auto& [key, source] : sources_) {
    if (!source->isChosen && source->question.isUnderWay()) source->question.forget();
  }
  // One that failed is asked again when the user says so, or comes back to it.
  for (Source* source : std::vector(chosen_)) {
    const bool isNew = std::ranges::find(before, source) == before.end();
    if (isNew && source->sample.reviews.empty() && source->sample.next) ask(*source);
  }
  Q_EMIT changed();
}

const ReviewSample& ReviewReader::sample(std::size_t index) const {
  return chosen_.at(index)->sample;
}

void ReviewReader::readMore(std::size_t index) {
  Source& source = *chosen_.at(index);
  if (source.sample.next && !source.question.isUnderWay()) ask(source);
}

void ReviewReader::tryAgain() {
  for (Source* source : std::vector(chosen_)) {
    const ListState& state = source->sample.state;
    const bool hasFailed =
        std::holds_alternative<Failed>(state) || std::holds_alternative<Offline>(state);
    if (hasFailed) source->question.tryAgain();
  }
}

void ReviewReader::stop() {
  for (Source* source : std::vector(chosen_)) {
    if (source->question.isUnderWay()) source->question.stop();
  }
}

void ReviewReader::ask(Source& source) {
  const ReviewPlace place = *source.sample.next;
  source.question.ask(
      [place](QueryServices services, QueryCall call) {
        return readReviewPage(place, services, std::move(call));
      },
      [this, &source](ReviewBatch batch) { take(source, std::move(batch)); });
}

void ReviewReader::take(Source& source, ReviewBatch batch) {
  ReviewSample& sample = source.sample;
  const bool namesVersions = source.order == ReviewOrder::mostRecent;
  if (!namesVersions) addVersions(batch.reviews, releases_);
  if (!source.isRead && !sample.reviews.empty()) {
    sample.reviews.clear();
    ++sample.issue;
  }
  source.isRead = true;
  std::ranges::move(batch.reviews, std::back_inserter(sample.reviews));
  if (batch.next) sample.feedEmpty = batch.next->feedEmpty;
  const bool isEnough = batch.next && batch.next->page >= kMostReviewPages;
  sample.next = isEnough ? std::nullopt : std::move(batch.next);
  // An empty feed is no page yet: the store's order stands in at once.
  if (sample.reviews.empty() && sample.next) ask(source);
}

namespace {

/// Which of two is to be told first.
int urgencyOf(const ListState& state) {
  if (std::holds_alternative<Throttled>(state)) return 3;
  if (std::holds_alternative<BudgetWait>(state)) return 2;
  return std::holds_alternative<Offline>(state) ? 1 : 0;
}

ListState waitOf(const ReviewReader& reader) {
  ListState wait = Ready{};
  for (std::size_t i = 0; i < reader.count(); ++i) {
    const ListState& state = reader.sample(i).state;
    if (urgencyOf(state) > urgencyOf(wait)) wait = state;
  }
  return wait;
}

}  // namespace

ListState stateOf(const ReviewReader& reader) {
  const ListState wait = waitOf(reader);
  const bool waits = !std::holds_alternative<Ready>(wait);
  if (waits || reader.count() != 1) return wait;
  const ReviewSample& only = reader.sample(0);
  if (!std::holds_alternative<Failed>(only.state)) return only.state;
  return Failed{QCoreApplication::translate("Reviews", "%1 could not be read.")
                    .arg(QString::fromStdString(only.country))};
}

}  // namespace quillet
