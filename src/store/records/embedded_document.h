// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "store/records/catalog_answer.h"

namespace quillet {

/// A page of the store that was fetched, but whose data is not where it was.
class UnreadablePage : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The JSON that a page of the store carries in a script for its own use; absent where there is
/// none. Only the first such script counts.
[[nodiscard]] std::optional<std::string_view> embeddedJson(std::string_view html);

/// The data of a page. Its levels are objects in one version of the store's site and lists of
/// objects in another: a list's elements are taken in order.
class EmbeddedDocument {
 public:
  /// Throws UnreadablePage where the page holds no data.
  explicit EmbeddedDocument(std::string_view html);

  /// The objects two levels of "data" below the root; a root that is a list is the first of these
  /// levels itself. Valid as long as the document.
  [[nodiscard]] const std::vector<CatalogBlock>& contents() const { return contents_; }

 private:
  std::optional<JsonDocument> document_;
  std::vector<CatalogBlock> contents_;
};

/// The store ID of an item on a page, which may stand on its lockup; absent when it is no positive
/// number.
[[nodiscard]] std::optional<std::int64_t> adamIdOf(const CatalogBlock& item);

}  // namespace quillet
