// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "desktop/lists/section.h"
#include "desktop/models/row_table.h"
#include "desktop/support/view_parts.h"
#include "support/fake_clock.h"
#include "support/memory_settings.h"
#include "support/scripted_http_client.h"

namespace quillet {

using namespace Qt::Literals::StringLiterals;

/// What a view stands in, without a network and with a library that a test may open.
struct TestWorld {
  [[nodiscard]] ViewWorld world() { return parts.world(); }

  FakeClock clock{Instant(std::chrono::sys_days{std::chrono::year{2026} / 11 / 20})};
  ScriptedHttpClient http;
  MemorySettings settings;
  ViewParts parts{http, clock, settings};
  LibraryGateway& library = parts.library;
};

inline AppRow namedRow(std::int64_t trackId, const QString& name) {
  AppRow row;
  row.key.app = {trackId, "us"};
  row.name = name;
  row.folded = foldedText({name});
  return row;
}

inline AppRow numberedRow(std::int64_t trackId) {
  return namedRow(trackId, u"App %1"_s.arg(trackId, 4, 10, QChar(u'0')));
}

inline bool isBeforeByName(const AppRow& left, const AppRow& right) {
  return left.folded < right.folded;
}
inline bool isBeforeByPrice(const AppRow& left, const AppRow& right) {
  return left.price.amount < right.price.amount;
}
inline constexpr std::array kTestSorts{SortChoice{"name", "Name", isBeforeByName},
                                       SortChoice{"price", "Price", isBeforeByPrice}};
inline constexpr std::array kTestChips{ChipChoice{"dropped", "Dropped", RowMark::dropped},
                                       ChipChoice{"lowest", "At lowest", RowMark::atLowest},
                                       ChipChoice{"target", "Target set", RowMark::hasTarget},
                                       ChipChoice{"free", "Free now", RowMark::isFree},
                                       ChipChoice{"version", "New version", RowMark::newVersion}};

inline RowTable testTable(const RowLayout& layout = {}) {
  return {layout, kTestSorts, kTestChips, {"eye", "Nothing on the list yet.", "Rows appear here."}};
}

/// One list with every kind of part that rows have.
struct RowFixture {
  const char* name;
  RowTable table;
  std::vector<AppRow> rows;
};
std::vector<RowFixture> rowFixtures();

}  // namespace quillet
