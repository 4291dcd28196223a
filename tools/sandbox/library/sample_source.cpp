// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/library/sample_source.h"

#include "sandbox/endpoints.h"
#include "sandbox/random.h"
#include "store/records/catalog_enrichment_json.h"
#include "store/records/itunes_app_json.h"

namespace quillet::sandbox {

namespace {

Platform platformOf(Shelf shelf) {
  switch (shelf) {
    case Shelf::mac: return Platform::mac;
    case Shelf::iphone: return Platform::iphone;
    case Shelf::ipad: break;
  }
  return Platform::ipad;
}

/// Asks the store as Quillet would.
ITunesApp recordOf(const SampleStore& store, const AppSketch& app, Storefront storefront,
                   Shelf shelf) {
  const std::string entity(textOf(kPlatformEntities, platformOf(shelf)));
  const Answer answer = answerTo(store, {.path = "/lookup",
                                         .query = {{"id", std::to_string(app.id)},
                                                   {"country", std::string(codeOf(storefront))},
                                                   {"entity", entity}}});
  return decodeSearchResponse(answer.body).at(0);
}

constexpr std::uint64_t kNeverOpened = 9;  // one app in so many

/// What the catalog says of an app whose page was opened.
std::optional<AppEnrichment> catalogOf(const SampleStore& store, std::int64_t id,
                                       Storefront storefront, Shelf shelf) {
  if (mixed(static_cast<std::uint64_t>(id), 47) % kNeverOpened == 0) return {};
  const Platform platform = platformOf(shelf);
  const Answer answer = answerTo(
      store, {.path = fmt::format("/api/apps/v1/catalog/{}/apps/{}", codeOf(storefront), id),
              .query = {{"platform", platform == Platform::mac ? "mac" : "ipad"}},
              .userAgent = "Mozilla/5.0"});
  if (answer.status != 200) return {};
  return decodeEnrichment(answer.body, platform);
}

}  // namespace

std::vector<MetApp> bestMet(const SampleStore& store, Storefront storefront, Shelf shelf,
                            std::size_t count, const SampleStore::SketchTest& test) {
  std::vector<MetApp> met;
  for (const AppNumber number : store.bestKnown(shelf, storefront, 0, count, test)) {
    AppSketch sketch = store.sketch(number);
    sketch.purchases = store.app(number).purchases;  // with their product identifiers
    ITunesApp record = recordOf(store, sketch, storefront, shelf);
    DescribedApp described =
        describeApp(record, platformOf(shelf), catalogOf(store, sketch.id, storefront, shelf));
    met.push_back({std::move(sketch), std::move(record), std::move(described), storefront, shelf});
  }
  return met;
}

RecordSource sourceOf(const MetApp& app, Instant when) {
  return {std::string(codeOf(app.storefront)), platformOf(app.shelf), when};
}

}  // namespace quillet::sandbox
