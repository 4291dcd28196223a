// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/list_fixtures.h"

namespace quillet {

namespace {

AppRow priced(AppRow row, const QString& text, PriceMove move = PriceMove::none,
              const QString& aside = {}) {
  row.price.text = text;
  row.price.move = move;
  row.aside = aside;
  return row;
}

AppRow soldBy(AppRow row, const QString& seller, std::optional<int> halves = {}) {
  row.seller = seller;
  row.ratingHalves = halves;
  return row;
}

AppRow marked(AppRow row, RowMarks marks) {
  row.marks = marks;
  return row;
}

std::vector<AppRow> watched() {
  return {
      marked(priced(soldBy(namedRow(1, u"Pagewren Markdown"_s), u"Inês Quintalhão"_s, 8),
                    u"$4.99"_s, PriceMove::down, u"−50 %"_s),
             RowMark::atLowest),
      priced(soldBy(namedRow(2, u"Dungeon of Brambles"_s), u"Coppermill Games Oy"_s, 10),
             u"$14.99"_s, PriceMove::up, u"+150 %"_s),
      priced(soldBy(namedRow(3, u"Elvilova: Little Drum Machine"_s), u"Studio Halvorsen"_s, 8),
             u"$9.99"_s, PriceMove::none, u"target $7.99"_s),
      marked(priced(soldBy(namedRow(4, u"Typebarn Editor"_s),
                           u"North Lantern Collective of the Far Shores, LLC"_s, 9),
                    u"Free"_s, PriceMove::down, u"−100 %"_s),
             RowMark::atLowest),
      priced(soldBy(namedRow(5, u"Lumenfjord Photo Editor with a Name That Goes On and On"_s),
                    u"Ingrid Quilson"_s),
             u"49,99 €"_s),
      namedRow(6, u"Nothing Known"_s),
  };
}

AppRow alert(std::int64_t id, const QString& title, const char* icon, RowTone tone,
             const QString& detail, const QString& time) {
  AppRow row = namedRow(id, title);
  row.key.row = id;
  row.title = title;
  row.detail = detail;
  row.detailIcon = QString::fromUtf8(icon);
  row.detailTone = tone;
  row.time = time;
  return row;
}

std::vector<AppRow> alerts() {
  std::vector<AppRow> rows{alert(1, u"Kreleenn hit your target price"_s, "bullseye", RowTone::mine,
                                 u"$1.99 → $1.49"_s, u"09:12"_s),
                           alert(2, u"Mailbarge was updated"_s, "arrow-up-circle", RowTone::quiet,
                                 u"Version 2.31 is now available."_s, u"08:40"_s),
                           alert(3, u"Typebarn Editor is now free"_s, "gift-fill", RowTone::good,
                                 u"Was $4.99 — now free."_s, u"18:22"_s),
                           alert(4, u"Cutoutling: Cutoutling Weekly costs more"_s, "bag-fill",
                                 RowTone::bad, u"$2.99 → $4.99"_s, u"14:05"_s)};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].day = i < 2 ? u"Today"_s : u"Yesterday"_s;
    if (i % 2 == 0) rows[i].marks = RowMark::unread;
  }
  return rows;
}

AppRow viewed(AppRow row, const QString& was, const QString& time, const QString& day) {
  row.was = was;
  row.time = time;
  row.day = day;
  return row;
}

std::vector<AppRow> history() {
  return {
      viewed(priced(soldBy(namedRow(1, u"Riverrook RSS"_s), u"Hazelworks Studio B.V."_s),
                    u"$9.99"_s, PriceMove::down),
             {}, u"09:13"_s, u"Today"_s),
      viewed(priced(soldBy(namedRow(2, u"Draftlark: Markdown Editor"_s), u"Tomas Larkendahl"_s),
                    u"$14.99"_s),
             {}, u"08:58"_s, u"Today"_s),
      viewed(
          priced(soldBy(namedRow(3, u"Quoroltenn – Markdown Editor"_s), u"Glenunnima Labs, Inc."_s),
                 u"$6.99"_s, PriceMove::up),
          u"was $4.99"_s, u"Wed"_s, u"This week"_s),
  };
}

std::vector<AppRow> entries() {
  std::vector<AppRow> rows{
      priced(soldBy(namedRow(1, u"Nibforge"_s), u"North Lantern Collective, LLC"_s), u"$29.99"_s),
      priced(soldBy(namedRow(2, u"Draftlark: Markdown Editor"_s), u"Tomas Larkendahl"_s),
             u"$14.99"_s),
      priced(soldBy(namedRow(3, u"Typebarn Editor"_s), u"North Lantern Collective, LLC"_s),
             u"Free"_s, PriceMove::down)};
  rows[0].note = u"Export works, sync does not. Try again after 3.0."_s;
  rows[2].note =
      u"Ask Amara whether the family plan covers the old iPad, and the one of the "
      u"children, before the sale in November ends."_s;
  AppRow collection = namedRow(0, u"Writing"_s);
  collection.key.row = 7;
  collection.symbol = u"pencil"_s;
  collection.detail = u"9 apps · $77.95 · 1 unknown"_s;
  collection.pictures = {"", "", ""};
  rows.push_back(collection);
  return rows;
}

std::vector<AppRow> owned() {
  std::vector<AppRow> rows{
      priced(namedRow(1, u"Ledgerline Budget"_s), u"$29.99"_s, PriceMove::none, u"184 MB"_s),
      priced(namedRow(2, u"Vaultwillow"_s), u"$4.99"_s, PriceMove::none, u"1.2 GB"_s)};
  rows[0].detail = u"Version 2.3 · No update in 13 months"_s;
  rows[0].badge = u"2.3 → 2.4"_s;
  rows[1].detail = u"No longer sold"_s;
  rows[1].detailTone = RowTone::warning;
  return rows;
}

std::vector<AppRow> deals() {
  std::vector<AppRow> rows{
      marked(priced(soldBy(namedRow(1, u"Nimble Synth"_s), u"Sofia Zoraberg"_s), u"Free"_s,
                    PriceMove::down, u"−100 %"_s),
             RowMark::atLowest),
      marked(priced(soldBy(namedRow(2, u"Quoruskova – Translator"_s), u"Drumostard Labs, Inc."_s),
                    u"$1.99"_s, PriceMove::down, u"−60 %"_s),
             RowMark::watched),
      priced(soldBy(namedRow(3, u"Lornorora – Database Client of the Long Name"_s), {}),
             u"¥128,000"_s, PriceMove::down, u"−0.3 %"_s)};
  const char* const was[] = {"$1.99", "$4.99", "¥128,400"};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].was = QString::fromUtf8(was[i]);
    rows[i].time = i == 0 ? u"today"_s : u"20 Nov"_s;
    rows[i].changePercent =
        rows[i].aside.left(rows[i].aside.size() - 2).replace(u'−', u'-').toDouble();
    if (i > 0) rows[i].lowText = u"101 % above its lowest"_s;
  }
  return rows;
}

}  // namespace

std::vector<RowFixture> rowFixtures() {
  RowLayout watchlist;
  watchlist.hasSparkline = true;
  watchlist.hasStars = true;
  RowLayout days;
  days.hasDays = true;
  days.hasGutter = true;
  RowLayout low;
  low.height = 52;
  low.artwork = 36;
  low.hasDays = true;
  RowLayout notes;
  notes.hasNotes = true;
  RowLayout columns;
  columns.hasSparkline = true;
  columns.hasDealColumns = true;
  const auto unsorted = [](const RowLayout& layout) {
    RowTable table = testTable(layout);
    table.sorts = {};
    return table;
  };
  return {{"watchlist", unsorted(watchlist), watched()},
          {"alerts", unsorted(days), alerts()},
          {"history", unsorted(low), history()},
          {"collection", unsorted(notes), entries()},
          {"owned", unsorted({}), owned()},
          {"deals", unsorted(columns), deals()}};
}

}  // namespace quillet
