// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <array>
#include <functional>
#include <map>
#include <memory>

#include "desktop/lists/section.h"

namespace quillet {

/// Under which head a section stands in the sidebar.
enum class SectionGroup { discover, library };

/// What Refresh means in a section.
enum class SectionRefresh {
  readsAgain,    ///< its rows follow the library by themselves, so no button says it
  checksPrices,  ///< of the apps it shows
  asksStore,     ///< what it shows is the store's
};

/// What the window knows of a section before it is made.
struct SectionFace {
  SectionId id;
  const char* name;      ///< marked for translation in the context "Sections"
  const char* icon;      ///< of icon_list.txt
  const char* actionId;  ///< of the action that goes there
  const char* key;       ///< as QKeySequence reads it
  SectionRefresh refresh = SectionRefresh::readsAgain;
  SectionGroup group = SectionGroup::library;
};

/// In the order of the sidebar.
inline constexpr std::array<SectionFace, 9> kSectionFaces{{
    {SectionId::search, QT_TRANSLATE_NOOP("Sections", "Search"), "search", "go-search", "Ctrl+1",
     SectionRefresh::asksStore, SectionGroup::discover},
    {SectionId::charts, QT_TRANSLATE_NOOP("Sections", "Charts"), "bar-chart", "go-charts", "Ctrl+2",
     SectionRefresh::asksStore, SectionGroup::discover},
    {SectionId::deals, QT_TRANSLATE_NOOP("Sections", "Deals"), "tag", "go-deals", "Ctrl+3",
     SectionRefresh::asksStore, SectionGroup::discover},
    {SectionId::watchlist, QT_TRANSLATE_NOOP("Sections", "Watchlist"), "eye", "go-watchlist",
     "Ctrl+4", SectionRefresh::checksPrices},
    {SectionId::alerts, QT_TRANSLATE_NOOP("Sections", "Alerts"), "bell", "go-alerts", "Ctrl+5"},
    {SectionId::collections, QT_TRANSLATE_NOOP("Sections", "Collections"), "collection",
     "go-collections", "Ctrl+6"},
    {SectionId::myApps, QT_TRANSLATE_NOOP("Sections", "My Apps"), "grid", "go-my-apps", "Ctrl+7"},
    {SectionId::history, QT_TRANSLATE_NOOP("Sections", "History"), "clock-history", "go-history",
     "Ctrl+8"},
    {SectionId::compare, QT_TRANSLATE_NOOP("Sections", "Compare"), "layout-three-columns",
     "go-compare", "Ctrl+9", SectionRefresh::asksStore},
}};

[[nodiscard]] constexpr const SectionFace& faceOf(SectionId id) {
  for (const SectionFace& face : kSectionFaces) {
    if (face.id == id) return face;
  }
  return kSectionFaces.front();
}
static_assert([] {
  for (std::size_t i = 0; i < kSectionFaces.size(); ++i) {
    if (faceOf(static_cast<SectionId>(i)).id != static_cast<SectionId>(i)) return false;
  }
  return kSectionFaces.size() == kSectionWords.size();
}());

/// Its name, translated.
[[nodiscard]] QString nameOf(SectionId id);

using SectionMaker = std::function<std::unique_ptr<Section>(const ViewWorld& world)>;
/// How the sections are made; whoever builds the window says so.
using SectionMakers = std::map<SectionId, SectionMaker>;

}  // namespace quillet
