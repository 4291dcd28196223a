// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/stories.h"

#include <algorithm>

#include "base/text.h"
#include "sandbox/random.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

// Stories have IDs by those of their apps, where no app, maker or purchase has its own.
constexpr std::int64_t kIdDistance = 20'000;
constexpr int kMostStories = 2;

int storyCount(const SampleApp& app) {
  const std::size_t dice = Random(mixed(static_cast<std::uint64_t>(app.id), 700)).below(12);
  if (!app.badge.empty()) return dice < 4 ? kMostStories : 1;
  return dice == 0 ? 1 : 0;
}

SampleStory storyOf(const SampleApp& app, int number) {
  Random random(mixed(static_cast<std::uint64_t>(app.id), 710 + static_cast<unsigned>(number)));
  const bool isAboutBadge = number == 0 && !app.badge.empty();
  SampleStory story;
  story.id = app.id + kIdDistance + number;
  story.appId = app.id;
  story.label = isAboutBadge ? app.badge : random.pick(words().storyLabels);
  story.title = filledIn(random.pick(words().storyTitles), app.name);
  story.tagline = random.pick(words().storyTaglines);
  story.background = fmt::format("{:06x}", random.below(1U << 24U));
  return story;
}

}  // namespace

std::vector<SampleStory> storiesAbout(const SampleApp& app) {
  std::vector<SampleStory> stories;
  for (int number = 0; number < storyCount(app); ++number) stories.push_back(storyOf(app, number));
  return stories;
}

std::optional<SampleStory> storyWithId(const SampleStore& store, std::int64_t id) {
  for (int number = 0; number < kMostStories; ++number) {
    const auto app = store.withId(id - kIdDistance - number);
    if (!app) continue;
    const auto stories = storiesAbout(store.app(*app));
    const auto story = std::ranges::find(stories, id, &SampleStory::id);
    if (story != stories.end()) return *story;
  }
  return std::nullopt;
}

}  // namespace quillet::sandbox
