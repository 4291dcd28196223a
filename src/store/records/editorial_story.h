// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

namespace quillet {

/// A story of the store's editors. A text is empty where the store did not say.
struct EditorialStory {
  std::string id;
  std::string label;
  std::string title;
  std::string tagline;
  std::optional<std::string> artworkTemplate;  ///< image address with {w}, {h} and {f}
  std::optional<std::string> backgroundHex;    ///< "1a2b3c"

  friend bool operator==(const EditorialStory&, const EditorialStory&) = default;
};

}  // namespace quillet
