// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/report_overview.h"

#include <fmt/format.h>

#include "analysis/maintenance_texts.h"
#include "base/text.h"
#include "base/urls.h"

namespace quillet {

namespace {

std::string ratingText(const AppReport& report, const LocaleFormats& formats) {
  if (report.ratingCount == 0) return "No ratings yet";
  if (!report.rating) return {};
  const std::string mean = fmt::format("{:.1f} out of 5", *report.rating);
  if (!report.ratingCount) return mean;
  return fmt::format("{} ({} ratings)", mean, formats.integer(*report.ratingCount));
}

std::string dayText(const std::optional<Instant>& instant) {
  return instant ? formatDay(*instant) : std::string();
}

std::string systemText(const DescribedApp& app) {
  const std::string version = app.record.minimumOsVersion.value_or("");
  if (version.empty()) return {};
  return fmt::format("{} {} or later", app.platform == Platform::mac ? "macOS" : "iOS", version);
}

std::string purchasesText(const AppReport& report, const ITunesApp& app) {
  if (report.hasSubscription == true) return "Yes, including subscriptions";
  if (report.inAppPurchases) return report.inAppPurchases->empty() ? "No" : "Yes";
  return app.hasInAppPurchases == true ? "Yes" : "";
}

ReportFact linkFact(const std::string& address) {
  return {"App Store", address,
          isWebAddress(address) ? ReportFact::Kind::link : ReportFact::Kind::text};
}

}  // namespace

std::vector<ReportFact> reportOverview(const AppReport& report, const DescribedApp& described,
                                       const LocaleFormats& formats) {
  const ITunesApp& app = described.record;
  std::vector<ReportFact> facts{
      {"Rating", ratingText(report, formats)},
      {"Maintenance", std::string(maintenanceTitle(report.maintenance.level))},
      {"Category", report.genre.value_or("")},
      {"Developer", report.developer.value_or("")},
      {"Version", report.version.value_or("")},
      {"Last update", dayText(report.lastUpdated)},
      {"First release", dayText(report.releaseDate)},
      {"Size", report.sizeBytes ? formats.byteCount(*report.sizeBytes) : ""},
      {"Minimum system", systemText(described)},
      {"Age rating", report.contentRating.value_or("")},
      {"Languages", join(app.languageCodesISO2A.value_or(std::vector<std::string>()), ", ")},
      {"Bundle ID", report.bundleId.value_or("")},
      {"In-app purchases", purchasesText(report, app)},
      linkFact(report.storeURL.value_or("")),
  };
  std::erase_if(facts, [](const ReportFact& fact) { return fact.text.empty(); });
  return facts;
}

}  // namespace quillet
