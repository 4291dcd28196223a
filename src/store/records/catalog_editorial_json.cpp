// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_editorial_json.h"

#include "store/records/catalog_answer.h"

namespace quillet {

namespace {

/// The artwork stands in its block, or one level below, once for each form of a card.
CatalogBlock artworkIn(const CatalogBlock& attributes) {
  const CatalogBlock artwork = attributes.block("editorialArtwork");
  if (artwork.get<std::string>("url")) return artwork;
  for (const CatalogBlock& form : artwork.innerBlocks()) {
    if (form.get<std::string>("url")) return form;
  }
  return artwork;
}

EditorialStory readStory(const CatalogBlock& attributes) {
  const CatalogBlock notes = attributes.block("editorialNotes");
  const CatalogBlock artwork = artworkIn(attributes);
  EditorialStory story;
  story.label = attributes.text("label");
  story.title = notes.text("name");
  story.tagline = notes.get<std::string>("tagline").value_or(notes.text("short"));
  story.artworkTemplate = artwork.get<std::string>("url");
  story.backgroundHex = artwork.get<std::string>("bgColor");
  return story;
}

}  // namespace

std::vector<EditorialStory> decodeStories(const std::string& body) {
  const CatalogAnswer answer(body);
  std::vector<EditorialStory> stories;
  for (const CatalogBlock& resource : answer.resources()) {
    auto id = textIdOf(resource);
    if (!id) continue;
    stories.push_back(readStory(resource.block("attributes")));
    stories.back().id = std::move(*id);
  }
  return stories;
}

}  // namespace quillet
