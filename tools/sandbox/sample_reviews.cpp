// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/sample_reviews.h"

#include <algorithm>

#include "sandbox/random.h"
#include "sandbox/review_texts.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

constexpr std::int64_t kMostReviews = 620;

/// One in so many of those who rate also writes, fewer the farther down the list the storefront.
std::int64_t ratingsPerReview(Storefront storefront) {
  return 20 + 15 * static_cast<std::int64_t>(storefront);
}

std::uint64_t keyOf(const SampleApp& app, Storefront storefront) {
  return mixed(static_cast<std::uint64_t>(app.id), 1000 + static_cast<std::uint64_t>(storefront));
}

/// Drawn so that many reviews share out as the ratings do.
int starsOf(const SampleRatings& ratings, Random& random) {
  auto left = static_cast<std::int64_t>(random.below(static_cast<std::size_t>(ratings.count())));
  for (int stars = 1; stars < 5; ++stars) {
    left -= ratings.histogram[static_cast<std::size_t>(stars) - 1];
    if (left < 0) return stars;
  }
  return 5;
}

/// The app's life is cut into as many stretches as there are reviews, each with one of them.
Instant dateOf(const SampleApp& app, std::chrono::sys_days today, int number, int count,
               Random& random) {
  const Instant end = today;
  const double life = static_cast<double>((end - app.firstReleased).count());
  const double ago = life * (number + 0.1 + 0.8 * random.unit()) / count;
  return end - std::chrono::milliseconds(static_cast<std::int64_t>(ago));
}

std::string versionAt(const SampleApp& app, Instant date) {
  const auto version = std::ranges::find_if(
      app.versions, [&](const SampleVersion& each) { return each.released <= date; });
  return version == app.versions.end() ? app.versions.back().number : version->number;
}

std::string nickname(Random& random) {
  const std::string_view given = random.pick(words().givenNames);
  switch (random.below(5)) {
    case 0: return fmt::format("{} {}.", given, random.pick(words().openings).front());
    case 1: return fmt::format("{}{}{}", random.pick(words().adjectives), given, random.below(100));
    case 2: return fmt::format("{}{}", random.pick(words().openings), random.pick(words().endings));
    case 3: return fmt::format("{}_{}", given, random.between(1950, 2015));
    default:
      return fmt::format("{} {}{}", given, random.pick(words().openings),
                         random.pick(words().familyEndings));
  }
}

std::string bodyOf(const SampleApp& app, const ReviewWords& words, Random& random) {
  const std::size_t start = random.below(words.sentences.size());
  const int count = random.between(1, 3);
  std::string body;
  for (int i = 0; i < count; ++i) {
    if (i > 0) body += random.oneIn(4) ? "\n\n" : " ";
    const std::size_t place = (start + static_cast<std::size_t>(i)) % words.sentences.size();
    body += filledIn(words.sentences[place], app.name);
  }
  return body;
}

/// The unhappy are answered more often.
std::optional<SampleReply> replyTo(const SampleReview& review, const SampleApp& app,
                                   std::chrono::sys_days today, Random& random) {
  if (!random.oneIn(review.stars < 4 ? 3 : 9)) return std::nullopt;
  const Instant soon = review.date + std::chrono::hours(random.between(5, 140));
  const Instant latest = std::max<Instant>(review.date, today);
  return SampleReply{replyText(review.stars, app.maker.artist, random), std::min(soon, latest)};
}

}  // namespace

int reviewCount(const SampleApp& app, Storefront storefront) {
  if (!app.isSoldIn(storefront)) return 0;
  const std::int64_t count = app.ratings.count() / ratingsPerReview(storefront);
  return static_cast<int>(std::min(count, kMostReviews));
}

SampleReview review(const SampleApp& app, Storefront storefront, std::chrono::sys_days today,
                    int number) {
  const int count = reviewCount(app, storefront);
  const std::uint64_t key = keyOf(app, storefront);
  Random random(mixed(key, static_cast<std::uint64_t>(count - number)));
  SampleReview review;
  review.id = 9'000'000'000 + static_cast<std::int64_t>(key % 1'000'000) * 1000 + count - number;
  review.stars = starsOf(app.ratings, random);
  const ReviewWords& words = reviewWords(storefront, moodOf(review.stars));
  review.title = random.pick(words.titles);
  review.body = bodyOf(app, words, random);
  review.userName = nickname(random);
  review.date = dateOf(app, today, number, count, random);
  review.isEdited = random.oneIn(8);
  review.version = versionAt(app, review.date);
  review.reply = replyTo(review, app, today, random);
  return review;
}

}  // namespace quillet::sandbox
