// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/answers.h"
#include "sandbox/bundles.h"
#include "sandbox/drawing/icon_drawing.h"
#include "sandbox/drawing/png.h"
#include "sandbox/drawing/screenshot_drawing.h"
#include "sandbox/page_answers.h"
#include "sandbox/pictures.h"
#include "sandbox/random.h"
#include "sandbox/stories.h"

namespace quillet::sandbox {

namespace {

/// Its icon, screenshots and stories begin from the same number, and look like one another.
Subject subjectOf(const AppFacts& app) {
  return {.key = mixed(static_cast<std::uint64_t>(app.id), 900),
          .name = app.name,
          .about = app.tagline,
          .genre = app.genres.front()};
}

std::optional<SampleBundle> anyBundle(const SampleStore& store, std::int64_t id) {
  for (std::size_t i = 0; i < kStorefrontCount; ++i) {
    if (auto bundle = bundleWithId(store, id, static_cast<Storefront>(i))) return bundle;
  }
  return std::nullopt;
}

std::optional<QImage> iconOf(const SampleStore& store, std::int64_t id, int side) {
  if (const auto number = store.withId(id)) return drawIcon(subjectOf(store.sketch(*number)), side);
  const auto bundle = anyBundle(store, id);
  if (!bundle) return std::nullopt;
  std::vector<Subject> subjects;
  for (const SampleApp& app : bundle->apps) subjects.push_back(subjectOf(app));
  return drawBundleIcon(subjects, side);
}

int screenshotsOf(const SampleApp& app, Picture picture) {
  switch (picture) {
    case Picture::macScreenshot: return app.screenshots.mac;
    case Picture::iphoneScreenshot: return app.screenshots.iphone;
    case Picture::ipadScreenshot: return app.screenshots.ipad;
    default: return 0;
  }
}

std::optional<QImage> screenshotOf(const SampleStore& store, const PictureName& name, QSize size) {
  const auto number = store.withId(name.id);
  if (!number) return std::nullopt;
  const SampleApp app = store.app(*number);
  if (name.number >= screenshotsOf(app, name.picture)) return std::nullopt;
  return drawScreenshot(subjectOf(app), name.number, size);
}

std::optional<QImage> storyOf(const SampleStore& store, std::int64_t id, QSize size) {
  const auto story = storyWithId(store, id);
  if (!story) return std::nullopt;
  return drawStory(subjectOf(store.sketch(*store.withId(story->appId))), size);
}

std::optional<QImage> drawn(const SampleStore& store, const AskedPicture& asked) {
  const PictureSize size = sizeWithin(asked.box, asked.name.picture);
  switch (asked.name.picture) {
    case Picture::icon:
      return asked.name.number == 0 ? iconOf(store, asked.name.id, size.width) : std::nullopt;
    case Picture::story:
      return asked.name.number == 0 ? storyOf(store, asked.name.id, QSize(size.width, size.height))
                                    : std::nullopt;
    default: return screenshotOf(store, asked.name, QSize(size.width, size.height));
  }
}

}  // namespace

Answer answerPicture(const SampleStore& store, const Request& request) {
  const auto asked = askedPicture(request.path);
  const auto image = asked ? drawn(store, *asked) : std::nullopt;
  if (!image) return pageNotFound();
  return {.contentType = "image/png", .body = pngOf(*image)};
}

}  // namespace quillet::sandbox
