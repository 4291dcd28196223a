// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/embedded_document.h"

#include "base/errors.h"

namespace quillet {

namespace {

constexpr std::string_view kOpening = "id=\"serialized-server-data\">";
constexpr std::string_view kClosing = "</script";

std::vector<CatalogBlock> dataIn(const std::vector<CatalogBlock>& blocks) {
  std::vector<CatalogBlock> data;
  for (const CatalogBlock& block : blocks) {
    for (const CatalogBlock& inner : block.list("data")) data.push_back(inner);
  }
  return data;
}

std::vector<CatalogBlock> firstLevel(JsonElement root) {
  JsonObject object;
  if (root.get(object) == simdjson::SUCCESS) return dataIn({CatalogBlock(object)});
  JsonArray list;
  if (root.get(list) != simdjson::SUCCESS) throw UnreadablePage("its data is not an object");
  std::vector<CatalogBlock> blocks;
  for (const JsonElement item : list) {
    if (item.get(object) == simdjson::SUCCESS) blocks.emplace_back(object);
  }
  return blocks;
}

}  // namespace

std::optional<std::string_view> embeddedJson(std::string_view html) {
  const std::size_t opening = html.find(kOpening);
  if (opening == std::string_view::npos) return {};
  const std::string_view rest = html.substr(opening + kOpening.size());
  const std::size_t end = rest.find(kClosing);
  if (end == std::string_view::npos) return {};
  return rest.substr(0, end);
}

EmbeddedDocument::EmbeddedDocument(std::string_view html) {
  const auto json = embeddedJson(html);
  if (!json) throw UnreadablePage("it holds no data");
  try {
    document_.emplace(std::string(*json));
  } catch (const DecodingError& error) {
    throw UnreadablePage(error.what());
  }
  contents_ = dataIn(firstLevel(document_->root()));
}

std::optional<std::int64_t> adamIdOf(const CatalogBlock& item) {
  const auto id = item.orElse(item.block("lockup")).get<std::int64_t>("adamId");
  return id && *id > 0 ? id : std::nullopt;
}

}  // namespace quillet
