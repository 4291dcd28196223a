// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <string>
#include <vector>

namespace quillet {

/// A country or region in which apps are sold.
struct Storefront {
  std::string code;  ///< two letters in lower case
  QString name;
  QString currency;  ///< what the store there asks for; empty where that is not known here
};

/// All of them: those with published prices first, in their order, the others by name.
[[nodiscard]] const std::vector<Storefront>& allStorefronts();

/// What it is called; the code where nobody calls it anything.
[[nodiscard]] QString storefrontName(const std::string& code);

/// Those that a text means: their names or a word of them begin with it, or it is their code. In
/// the order of all, names that begin with it first. All for an empty text.
[[nodiscard]] std::vector<Storefront> storefrontsLike(const QString& text);

}  // namespace quillet
