// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <span>

#include "base/numbers.h"
#include "sandbox/answers.h"
#include "sandbox/bundles.h"
#include "sandbox/charts.h"
#include "sandbox/json_parts.h"
#include "sandbox/page_answers.h"
#include "sandbox/pictures.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

/// Of several makes: the ID is a text, or a number for one in `numbers`; it stands on the item, or
/// a level below.
void writeItem(JsonWriter& json, std::int64_t id, std::int64_t numbers) {
  const auto writeId = [&] {
    json.key("adamId");
    if (id % numbers == 0) {
      json.value(id);
    } else {
      json.value(std::to_string(id));
    }
  };
  writeObject(json, [&] { id % 3 == 0 ? writeObject(json, "lockup", writeId) : writeId(); });
}

// An app's page.

/// What a page is made from.
struct Page {
  const SampleStore& store;
  const SampleApp& app;
  Storefront storefront;
  std::string_view pictureHost;
};

template <typename Write>
void writeShelf(JsonWriter& json, std::string_view name, Write writeItems) {
  writeObject(json, name, [&] { writeList(json, "items", writeItems); });
}

void writeBundleParents(JsonWriter& json, const Page& page) {
  const bool canBeIn = page.app.machines.mac && page.app.usCents > 0;
  const auto bundle = canBeIn ? bundleOf(page.store, page.app.maker.id, page.storefront)
                              : std::optional<SampleBundle>();
  if (bundle) writeShelf(json, "bundleParents", [&] { writeItem(json, bundle->id, 2); });
}

void writeDescription(JsonWriter& json, const SampleApp& app) {
  writeShelf(json, "description", [&] {
    writeObject(json, [&] {
      writeObject(json, "paragraph", [&] { json.member("text", app.description); });
    });
  });
}

void writeScreenshot(JsonWriter& json, std::string_view host, const PictureName& name) {
  const PictureSize whole = wholeSize(name.picture);
  writeObject(json, [&] {
    writeObject(json, "screenshot", [&] {
      json.member("height", whole.height);
      json.member("template", pictureUrl(host, name, "{w}x{h}{c}.{f}"));
      json.member("width", whole.width);
    });
  });
}

/// A film stands among the pictures now and then.
void writeFilm(JsonWriter& json) {
  writeObject(json, [&] {
    writeObject(json, "video", [&] {
      json.member("videoUrl", "https://films.quillet-pictures.example/preview.m3u8");
    });
  });
}

void writePictures(JsonWriter& json, const Page& page, const std::string& shelf, Picture picture,
                   int count) {
  if (count == 0) return;
  const std::int64_t id = page.app.id;
  writeShelf(json, shelf, [&] {
    if (id % 5 == 0) writeFilm(json);
    for (int number = 0; number < count; ++number)
      writeScreenshot(json, page.pictureHost, {id, picture, number});
  });
}

void writeShelves(JsonWriter& json, const Page& page) {
  const SampleApp& app = page.app;
  const SampleScreenshots& counts = app.screenshots;
  writeBundleParents(json, page);
  writeDescription(json, app);
  writePictures(json, page, app.id % 4 == 0 ? "product_media_mac_0" : "product_media_mac",
                Picture::macScreenshot, counts.mac);
  writePictures(json, page, "product_media_pad_0", Picture::ipadScreenshot, counts.ipad);
  writePictures(json, page, "product_media_phone_0", Picture::iphoneScreenshot, counts.iphone);
}

void writePage(JsonWriter& json, const Page& page) {
  writeObject(json, [&] {
    writeObject(json, "data", [&] {
      writeObject(json, "shelfMapping", [&] { writeShelves(json, page); });
      json.member("title", page.app.name);
    });
  });
}

/// The root is an object whose "data" is a list of pages or one page, or is the list itself.
std::string pageData(const Page& page) {
  JsonWriter json;
  const auto writeOne = [&] { writePage(json, page); };
  switch (page.app.id % 3) {
    case 0: writeObject(json, [&] { writeList(json, "data", writeOne); }); break;
    case 1:
      writeObject(json, [&] {
        json.key("data");
        writeOne();
      });
      break;
    default: writeList(json, writeOne);
  }
  return json.take();
}

}  // namespace

Answer answerProductPage(const SampleStore& store, const Request& request) {
  if (!request.isFromBrowser()) return pageRefusal();
  const auto storefront = storefrontOf(std::string_view(request.captures.front()));
  const auto number = store.withId(parseWhole(request.captures.back()).value_or(0));
  if (!storefront || !number) return pageNotFound();
  const SampleApp app = store.app(*number);
  if (!app.isSoldIn(*storefront)) return pageNotFound();
  return pageWith(app.name, pageData({store, app, *storefront, request.pictureHost}));
}

// The charts' page.

namespace {

constexpr std::size_t kOnPage = 50;

void writeRest(JsonWriter& json, std::span<const std::int64_t> ids) {
  writeObject(json, "nextPage", [&] {
    writeList(json, "remainingContent", [&] {
      for (const std::int64_t id : ids) {
        writeObject(json, [&] {
          json.member("adamId", std::to_string(id));
          json.member("id", std::to_string(id));
          json.member("type", "apps");
        });
      }
    });
  });
}

void writeShelfOf(JsonWriter& json, std::span<const std::int64_t> ids) {
  const auto writeItems = [&] {
    for (const std::int64_t id : ids) writeItem(json, id, 4);
  };
  writeList(json, "shelves",
            [&] { writeObject(json, [&] { writeList(json, "items", writeItems); }); });
}

void writeSegment(JsonWriter& json, const SampleStore& store, const ChartQuery& query) {
  std::vector<std::int64_t> ids;
  for (const AppNumber number : chartOf(store, query)) ids.push_back(store.sketch(number).id);
  const std::span<const std::int64_t> all = ids;
  const std::size_t onPage = std::min(all.size(), kOnPage);
  writeObject(json, [&] {
    json.member("chart", textOf(kChartWords, query.chart));
    if (all.size() > onPage) writeRest(json, all.subspan(onPage));
    writeShelfOf(json, all.first(onPage));
  });
}

std::string chartData(const SampleStore& store, ChartQuery query) {
  JsonWriter json;
  const auto writeSegments = [&] {
    for (const Chart chart : {Chart::topFree, Chart::topPaid}) {
      query.chart = chart;
      writeSegment(json, store, query);
    }
  };
  const auto writeCharts = [&] {
    writeObject(json, [&] {
      writeObject(json, "data", [&] { writeList(json, "segments", writeSegments); });
    });
  };
  writeObject(json, [&] {
    if (query.genre % 3 == 0) return writeList(json, "data", writeCharts);
    json.key("data");
    writeCharts();
  });
  return json.take();
}

}  // namespace

Answer answerChartPage(const SampleStore& store, const Request& request) {
  if (!request.isFromBrowser()) return pageRefusal();
  const auto storefront = storefrontOf(std::string_view(request.captures[0]));
  const auto shelf = valueOf(kShelfWords, request.captures[1]);
  const auto genre = static_cast<int>(parseWhole(request.captures[2]).value_or(0));
  const bool isGenre = genre == kAllGenres || !genreName(genre).empty();
  if (!storefront || !shelf || !isGenre) return pageNotFound();
  return pageWith("Charts",
                  chartData(store, {.shelf = *shelf, .storefront = *storefront, .genre = genre}));
}

}  // namespace quillet::sandbox
