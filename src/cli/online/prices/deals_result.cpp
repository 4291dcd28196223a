// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/prices/deals_result.h"

#include <fmt/format.h>

#include <algorithm>

#include "analysis/price_record.h"
#include "base/json_writer.h"
#include "base/text.h"
#include "cli/online/prices/price_text.h"
#include "cli/text_table.h"

namespace quillet {

namespace {

/// A drop while its texts still stand in the file.
struct Candidate {
  PriceSeed::Entry entry;
  PriceStep step;
  double percentOff = 0;
};

bool isWanted(const PriceSeed::Entry& entry, std::optional<Platform> platform) {
  return !platform || isMacKind(entry.kind) == (*platform == Platform::mac);
}

/// The order in which deals are listed; the number at last, so that it is total.
bool comesBefore(const Candidate& left, const Candidate& right, const LocaleFormats& formats) {
  if (left.percentOff != right.percentOff) return left.percentOff > right.percentOff;
  if (left.step.changedOn != right.step.changedOn) {
    return left.step.changedOn > right.step.changedOn;
  }
  const std::string leftName = left.entry.name.text().value_or("");
  const std::string rightName = right.entry.name.text().value_or("");
  if (leftName != rightName) return formats.nameLess(leftName, rightName);
  return left.entry.trackId < right.entry.trackId;
}

/// The foremost candidates of many; those that fall behind are let go on the way.
class Foremost {
 public:
  Foremost(std::size_t limit, const LocaleFormats& formats) : limit_(limit), formats_(formats) {}

  void add(const Candidate& candidate) {
    kept_.push_back(candidate);
    if (kept_.size() >= kMostAtOnce * limit_) prune();
  }

  /// In their order.
  [[nodiscard]] std::vector<Candidate> take() {
    prune();
    return std::move(kept_);
  }

 private:
  static constexpr std::size_t kMostAtOnce = 8;  // times the limit

  void prune() {
    const auto end = kept_.begin() + static_cast<std::ptrdiff_t>(std::min(limit_, kept_.size()));
    std::partial_sort(kept_.begin(), end, kept_.end(),
                      [this](const Candidate& left, const Candidate& right) {
                        return comesBefore(left, right, formats_);
                      });
    kept_.erase(end, kept_.end());
  }

  std::size_t limit_;
  const LocaleFormats& formats_;
  std::vector<Candidate> kept_;
};

CLIDeal dealOf(const Candidate& candidate) {
  const PriceSeed::Entry& entry = candidate.entry;
  return {entry.trackId,      entry.name.text(),     entry.seller.text(),
          entry.kind.text(),  entry.currency.text(), candidate.step.was,
          candidate.step.now, candidate.percentOff,  candidate.step.changedOn};
}

void writeDeal(JsonWriter& writer, const CLIDeal& deal) {
  writer.beginObject();
  writer.member("changedOn", deal.changedOn);
  writer.member("currency", deal.currency);
  writer.member("kind", deal.kind);
  writer.member("name", deal.name);
  writer.member("nowPrice", deal.nowPrice);
  writer.member("percentOff", deal.percentOff);
  writer.member("seller", deal.seller);
  writer.member("trackId", deal.trackId);
  writer.member("wasPrice", deal.wasPrice);
  writer.endObject();
}

std::string nothingText(const CLIDealsPayload& payload, const LocaleFormats& formats) {
  std::string text =
      fmt::format("No price drops in the {} storefront's latest data.", payload.country);
  if (!payload.oldLook.empty()) text += '\n' + payload.oldLook;
  if (payload.any == 0) return text;
  std::string options;
  if (payload.minimumDropPercent > 0) {
    options += fmt::format(" --min-drop {}", payload.minimumDropPercent);
  }
  if (payload.platform) options += fmt::format(" -p {}", textOf(kPlatformWords, *payload.platform));
  return text + fmt::format("\nWithout{} there {} {}.", options, payload.any == 1 ? "is" : "are",
                            formats.integer(static_cast<std::int64_t>(payload.any)));
}

std::string header(const CLIDealsPayload& payload, const LocaleFormats& formats) {
  const auto number = [&](std::size_t count) {
    return formats.integer(static_cast<std::int64_t>(count));
  };
  std::string text =
      fmt::format("{} price drop{}", number(payload.total), payload.total == 1 ? "" : "s");
  if (payload.deals.size() < payload.total) {
    text = fmt::format("{} of {}", number(payload.deals.size()), text);
  }
  text += fmt::format(" in the {} storefront", payload.country);
  if (payload.generatedAt) text += ", as of " + formatDay(*payload.generatedAt);
  text += '.';
  if (!payload.oldLook.empty()) text += '\n' + payload.oldLook;
  return text;
}

TableRow rowOf(const CLIDeal& deal, const LocaleFormats& formats) {
  return {std::to_string(deal.trackId),
          shown(deal.name),
          priceText(deal.wasPrice, deal.currency, formats),
          priceText(deal.nowPrice, deal.currency, formats),
          fmt::format("-{}%", formats.oneDecimal(deal.percentOff)),
          formatDay(deal.changedOn),
          shown(deal.seller)};
}

const std::vector<TableColumn>& dealColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "ID", .ink = Ink::dim},
      {.heading = "Name", .ink = Ink::bold, .smallest = 22},
      {.heading = "Was", .align = Align::right, .ink = Ink::dim, .leavesAs = 3},
      {.heading = "Now", .align = Align::right, .ink = Ink::green},
      {.heading = "Off", .align = Align::right},
      {.heading = "Since", .leavesAs = 2},
      {.heading = "Seller", .ink = Ink::dim, .smallest = 16, .leavesAs = 1},
  };
  return kColumns;
}

}  // namespace

CLIDealsPayload findDeals(PriceSeedReader& reader, const DealCriteria& criteria,
                          const LocaleFormats& formats) {
  CLIDealsPayload payload;
  payload.country = criteria.country;
  payload.generatedAt = reader.generatedAt();
  payload.platform = criteria.platform;
  payload.minimumDropPercent = criteria.minimumDrop;
  Foremost foremost(criteria.limit, formats);
  while (reader.next()) {
    const auto step = lastStep(reader.points());
    if (reader.entry().goneSince || !step || !isDrop(*step, 0)) continue;
    ++payload.any;
    if (!isWanted(reader.entry(), criteria.platform)) continue;
    if (!isDrop(*step, criteria.minimumDrop)) continue;
    ++payload.total;
    foremost.add({reader.entry(), *step, shownPercent(-percentOf(*step).value_or(0))});
  }
  for (const Candidate& each : foremost.take()) payload.deals.push_back(dealOf(each));
  return payload;
}

std::string renderDealsJson(const CLIDealsPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("count", payload.deals.size());
    writer.member("country", payload.country);
    writer.list("deals", payload.deals, writeDeal);
    writer.member("generatedAt", payload.generatedAt);
    writer.member("lookedAt", payload.lookedAt);
    writer.member("minimumDropPercent", payload.minimumDropPercent);
    writer.member("total", payload.total);
  });
}

std::string renderDealsText(const CLIDealsPayload& payload, const LocaleFormats& formats,
                            const TextStyle& style) {
  if (payload.deals.empty()) return nothingText(payload, formats);
  std::string text = header(payload, formats);
  std::vector<TableRow> rows;
  for (const CLIDeal& deal : payload.deals) rows.push_back(rowOf(deal, formats));
  text += "\n\n" + renderTable(dealColumns(), rows, style);
  text.pop_back();  // the runner ends the last line
  return text;
}

}  // namespace quillet
