// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/app_sketch.h"

#include <cmath>

#include "sandbox/random.h"
#include "sandbox/version_history.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

constexpr int kGames = 6014;

/// A few ratings are shared out over two neighbouring marks: rounded shares would miss the mean.
std::array<std::int64_t, 5> fewRatings(double stars, std::int64_t count) {
  std::array<std::int64_t, 5> histogram{};
  if (count == 0) return histogram;
  const std::int64_t sum = std::llround(stars * static_cast<double>(count));
  const auto lower = static_cast<std::size_t>(sum / count);
  const std::int64_t above = sum % count;
  histogram[lower - 1] = count - above;
  if (above > 0) histogram[lower] = above;
  return histogram;
}

/// Counts per star whose mean is `stars`: mostly the top (or the lowest) mark, some of the rest.
std::array<std::int64_t, 5> histogramOf(double stars, std::int64_t count) {
  constexpr std::int64_t kFew = 100;
  if (count < kFew) return fewRatings(stars, count);
  const bool isGood = stars >= 3;
  const double distance = isGood ? 5 - stars : stars - 1;
  // Shares of the four lesser marks, per star of distance: 4*.12 + 3*.06 + 2*.10 + 1*.14 = 1.
  constexpr std::array<double, 4> kShares{0.12, 0.06, 0.10, 0.14};
  std::array<std::int64_t, 5> histogram{};
  std::int64_t rest = count;
  for (std::size_t i = 0; i < kShares.size(); ++i) {
    const auto share = std::llround(kShares[i] * distance * static_cast<double>(count));
    const std::int64_t part = std::min<std::int64_t>(share, rest);
    histogram[isGood ? i : 4 - i] = part;
    rest -= part;
  }
  histogram[isGood ? 4 : 0] = rest;
  return histogram;
}

std::string descriptionOf(const AppSketch& sketch, Random random) {
  std::string text = sketch.about;
  text += fmt::format("\n\nWhat {} brings:\n", sketch.name);
  const std::vector<std::string>& features = words().features;
  const std::size_t start = random.below(features.size());
  const int count = random.between(5, 10);
  for (int i = 0; i < count; ++i) {
    text += "\n• ";
    text += features[(start + static_cast<std::size_t>(i) * 3) % features.size()];
  }
  if (!sketch.purchases.empty()) {
    text +=
        "\n\nSome features are sold inside the app. A subscription renews until it is "
        "cancelled in the settings of your account.";
  }
  text += fmt::format("\n\nQuestions, wishes? Write to us; {} answers every letter.",
                      sketch.maker.artist);
  return text;
}

SampleScreenshots screenshotsOf(Machines machines, Random random) {
  SampleScreenshots counts;
  if (machines.mac) counts.mac = random.between(2, 8);
  if (machines.iphone) counts.iphone = random.between(3, 8);
  if (machines.ipad) counts.ipad = random.between(2, 8);
  return counts;
}

void numberPurchases(SampleApp& app) {
  std::int64_t id = app.id + 10'000;
  for (SamplePurchase& purchase : app.purchases) purchase.productId = std::to_string(id++);
}

SamplePurchase purchase(std::string name, int usCents, std::string period) {
  std::string details = period.empty() ? "Bought once." : "Everything, for as long as you like.";
  return {.name = std::move(name),
          .details = std::move(details),
          .usCents = usCents,
          .period = std::move(period)};
}

/// What is left to chance, though the same at every look.
void draw(SampleApp& app, const AppSketch& sketch, std::chrono::sys_days today) {
  const auto randomFor = [&](std::uint64_t what) {
    return Random(mixed(static_cast<std::uint64_t>(sketch.id), what));
  };
  app.versions =
      versionHistory({sketch.version, sketch.notes, sketch.updated, sketch.every, sketch.first},
                     today, randomFor(1));
  app.description = descriptionOf(sketch, randomFor(2));
  app.screenshots = screenshotsOf(sketch.machines, randomFor(3));
  app.hidesMacScreenshots = randomFor(5).oneIn(3);
  if (randomFor(6).oneIn(20)) app.screenshots.mac = 0;
  app.iosBuildRunsOnMac = sketch.machines.ios() && randomFor(4).below(3) != 0;
}

}  // namespace

SamplePurchase subscription(std::string name, int usCents, std::string period) {
  return purchase(std::move(name), usCents, std::move(period));
}

SamplePurchase boughtOnce(std::string name, int usCents) {
  return purchase(std::move(name), usCents, {});
}

SampleApp finished(AppSketch sketch, std::chrono::sys_days today) {
  SampleApp app;
  draw(app, sketch, today);
  app.macBytes = sketch.bytes;
  app.iosBytes = sketch.machines.mac ? sketch.bytes * 7 / 10 : sketch.bytes;
  // A first release at eight in the morning, unless the newest version is older still.
  const Instant first = today - std::chrono::days(sketch.first) + std::chrono::hours(8);
  app.firstReleased = std::min(first, app.versions.back().released);
  app.ratings.histogram = histogramOf(sketch.stars, sketch.ratings);
  app.hasGameCenter = sketch.genres.front() == kGames;
  static_cast<AppFacts&>(app) = std::move(sketch);
  numberPurchases(app);
  return app;
}

}  // namespace quillet::sandbox
