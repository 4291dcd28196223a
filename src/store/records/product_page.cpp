// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/product_page.h"

#include "base/urls.h"
#include "store/records/embedded_document.h"
#include "store/records/sized_picture.h"

namespace quillet {

namespace {

constexpr std::string_view kMacPictures = "product_media_mac";

// The size and format in which the page itself shows them.
constexpr PictureFormat kScreenshot{1280, 800, "webp"};

CatalogBlock shelvesOf(const EmbeddedDocument& document) {
  CatalogBlock shelves;
  for (const CatalogBlock& content : document.contents()) {
    shelves = shelves.orElse(content.block("shelfMapping"));
  }
  return shelves;
}

std::vector<std::string> picturesOn(const CatalogBlock& shelf) {
  std::vector<std::string> addresses;
  for (const CatalogBlock& item : shelf.list("items")) {
    // A film among the pictures has no screenshot.
    std::string address = filledTemplate(item.block("screenshot").text("template"), kScreenshot);
    if (isWebAddress(address)) addresses.push_back(std::move(address));
  }
  return addresses;
}

/// The shelf's name may go on after an underscore. Several shelves show the same pictures.
std::vector<std::string> macPictures(const CatalogBlock& shelves) {
  auto addresses = picturesOn(shelves.block(kMacPictures));
  for (const std::string_view name : shelves.keysStartingWith(std::string(kMacPictures) + '_')) {
    if (!addresses.empty()) break;
    addresses = picturesOn(shelves.block(name));
  }
  return addresses;
}

}  // namespace

ProductPage decodeProductPage(std::string_view html) {
  const EmbeddedDocument document(html);
  const CatalogBlock shelves = shelvesOf(document);
  ProductPage page;
  page.macScreenshots = macPictures(shelves);
  for (const CatalogBlock& item : shelves.block("description").list("items")) {
    auto text = item.block("paragraph").get<std::string>("text");
    if (text) page.description.push_back(std::move(*text));
  }
  for (const CatalogBlock& item : shelves.block("bundleParents").list("items")) {
    if (const auto id = adamIdOf(item)) page.bundleIds.push_back(*id);
  }
  return page;
}

}  // namespace quillet
