// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/report_parts.h"

#include <algorithm>

namespace quillet {

AppReport withoutParts(AppReport report, const std::set<ReportPart>& parts) {
  const auto leavesOut = [&parts](ReportPart part) { return parts.contains(part); };
  if (leavesOut(ReportPart::description)) report.description.reset();
  if (leavesOut(ReportPart::purchases)) report.inAppPurchases.reset();
  if (leavesOut(ReportPart::versions)) report.versionHistory.reset();
  if (leavesOut(ReportPart::reviews)) report.reviews.reset();
  if (leavesOut(ReportPart::prices)) report.priceHistory.reset();
  return report;
}

AppReport beginningOf(AppReport report, std::size_t most) {
  const auto cut = [most](auto& list) {
    if (list && list->size() > most) list->resize(most);
  };
  cut(report.versionHistory);
  cut(report.reviews);
  auto& prices = report.priceHistory;
  if (prices && prices->size() > most)
    prices->erase(prices->begin(), prices->end() - static_cast<std::ptrdiff_t>(most));
  return report;
}

}  // namespace quillet
