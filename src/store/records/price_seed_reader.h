// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "base/text_buffer.h"
#include "store/records/price_seed.h"

namespace quillet {

/// Reads a storefront's file app by app, in one pass, without copying what nobody keeps.
///
///   while (reader.next()) use(reader.entry(), reader.points());
///
/// Apps without a readable ID or point are passed over, and so are points without a real day or
/// price. All operations throw PriceSeedError; after that the reader is of no more use.
class PriceSeedReader {
 public:
  /// `text`: the inflated file of the storefront `country`.
  PriceSeedReader(TextBuffer text, std::string country);
  ~PriceSeedReader();
  PriceSeedReader(PriceSeedReader&&) noexcept;
  PriceSeedReader& operator=(PriceSeedReader&&) noexcept;

  /// When the file was made, as it says; empty where it does not.
  [[nodiscard]] const std::string& stamp() const;
  /// The same as an instant; absent where the file names none.
  [[nodiscard]] std::optional<Instant> generatedAt() const;

  /// Goes on to the next app; false at the end of the file. A file without apps is an error.
  [[nodiscard]] bool next();

  /// The app at hand; its texts are valid as long as the reader.
  [[nodiscard]] const PriceSeed::Entry& entry() const;
  /// Its points, one a day, in the order of the days; valid until the next call of next().
  [[nodiscard]] std::span<const PriceSeed::Point> points() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace quillet
