// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/editorial_endpoint.h"

#include "base/numbers.h"
#include "sandbox/catalog_answers.h"
#include "sandbox/pictures.h"
#include "sandbox/stories.h"

namespace quillet::sandbox {

namespace {

void writeArtwork(JsonWriter& json, const SampleStory& story) {
  json.beginObject();
  json.member("bgColor", story.background);
  json.member("height", 1080);
  json.member("url", pictureUrl(story.id, Picture::ipadScreenshot, 0, "{w}x{h}bb.{f}"));
  json.member("width", 1920);
  json.endObject();
}

/// Every other story has its picture a level deeper, under the form of card that it is for.
void writeArtworks(JsonWriter& json, const SampleStory& story) {
  json.key("editorialArtwork");
  if (story.id % 2 == 0) return writeArtwork(json, story);
  json.beginObject();
  json.key("storyCard");
  writeArtwork(json, story);
  json.endObject();
}

void writeStory(JsonWriter& json, const SampleStory& story) {
  json.beginObject();
  json.key("attributes");
  json.beginObject();
  writeArtworks(json, story);
  json.key("editorialNotes");
  json.beginObject();
  json.member("name", story.title);
  json.member(story.id % 3 == 0 ? "short" : "tagline", story.tagline);
  json.endObject();
  json.member("label", story.label);
  json.endObject();
  json.member("id", std::to_string(story.id));
  json.member("type", "editorial-items");
  json.endObject();
}

}  // namespace

Answer answerEditorial(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const auto ids = catalogIds(request);
  if (!ids) return wrongIds();
  ResourceList list;
  for (const std::string& id : *ids) {
    if (const auto story = storyWithId(store, parseWhole(id).value_or(0)))
      writeStory(list.json(), *story);
  }
  return list.take();
}

}  // namespace quillet::sandbox
