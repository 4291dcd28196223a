// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/info_result.h"

#include "analysis/app_build.h"

namespace quillet {

namespace {

std::vector<CLIPurchase> summariesOf(const std::vector<InAppPurchase>& purchases,
                                     const LocaleFormats& formats) {
  std::vector<CLIPurchase> summaries;
  for (const InAppPurchase& p : purchases) summaries.push_back(summaryOf(p, formats));
  return summaries;
}

void writeChart(JsonWriter& writer, const ChartPosition& chart) {
  writer.beginObject();
  writer.memberUnlessEmpty("chart", chart.chart);
  writer.member("chartURL", chart.chartURL);
  writer.memberUnlessEmpty("genreName", chart.genreName);
  writer.member("position", chart.position);
  writer.endObject();
}

template <typename Item>
void writeList(JsonWriter& writer, std::string_view name,
               const std::optional<std::vector<Item>>& items,
               void (*writeItem)(JsonWriter&, const Item&)) {
  if (items) writer.list(name, *items, writeItem);
}

}  // namespace

CLIAppDetail detailOf(const DescribedApp& described, std::string country,
                      const LocaleFormats& formats) {
  const ITunesApp& app = described.record;
  CLIAppDetail detail;
  detail.app = summaryOf(described, formats);
  detail.country = std::move(country);
  detail.platform = described.platform;
  detail.description = app.description;
  detail.releaseNotes = app.releaseNotes;
  if (described.platform == Platform::mac) detail.architecture = architectureText(described.build);
  detail.requirements = described.build.requirements;
  detail.deviceFamilies = app.deviceFamilies;
  detail.editorialBadge = app.editorialBadge;
  detail.tagline = app.tagline;
  detail.chartPosition = described.chartPosition;
  detail.ratingHistogram = app.ratingHistogram;
  if (described.purchases) detail.inAppPurchases = summariesOf(*described.purchases, formats);
  detail.recentVersions = described.versions;
  detail.monetization = described.monetization;
  detail.isCatalogRead = described.isCatalogRead;
  return detail;
}

std::string renderInfoJson(const CLIAppDetail& detail) {
  return jsonObject([&](JsonWriter& writer) {
    writer.key("app");
    writeSummary(writer, detail.app);
    writer.member("architecture", detail.architecture);
    if (detail.chartPosition) {
      writer.key("chartPosition");
      writeChart(writer, *detail.chartPosition);
    }
    writer.member("country", detail.country);
    writer.member("description", detail.description);
    writer.member("deviceFamilies", detail.deviceFamilies);
    writer.member("editorialBadge", detail.editorialBadge);
    writeList(writer, "inAppPurchases", detail.inAppPurchases, writePurchase);
    writer.member("platform", textOf(kPlatformWords, detail.platform));
    writer.member("ratingHistogram", detail.ratingHistogram);
    writeList(writer, "recentVersions", detail.recentVersions, writeVersion);
    writer.member("releaseNotes", detail.releaseNotes);
    writer.member("requirements", detail.requirements);
    writer.member("tagline", detail.tagline);
  });
}

}  // namespace quillet
