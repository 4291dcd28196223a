// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include "analysis/search_presets.h"
#include "desktop/frame/guide.h"
#include "desktop/models/saved_query.h"
#include "system/settings.h"

namespace quillet {

/// Leads into Search, to what is asked of the store there.
class SearchGuide {
 public:
  /// Guide and settings outlive this. `storefront`: the user's.
  SearchGuide(Guide& guide, const Settings& settings, std::function<std::string()> storefront);

  [[nodiscard]] bool canSearch() const { return guide_.hasSection(SectionId::search); }
  /// What Search shows, where it is shown; null elsewhere, and before anything was asked.
  [[nodiscard]] const StoreQuery* shown() const;
  /// Whether Search shows this.
  [[nodiscard]] bool shows(const StoreQuery& query) const;

  /// To its rows, where it is shown already; answers that are not quite young are renewed.
  void goTo(StoreQuery query);
  /// A name, a store link, a track ID or a bundle ID. `country` is the storefront; absent for the
  /// user's own.
  void searchFor(std::string text, std::optional<std::string> country = {});

  /// Sets the filters of the preset, or takes them back where they are set; from elsewhere goes to
  /// Search with them.
  void toggle(const SearchPreset& preset);
  [[nodiscard]] bool holds(const SearchPreset& preset) const;

 private:
  Guide& guide_;
  const Settings& settings_;
  std::function<std::string()> storefront_;
};

}  // namespace quillet
