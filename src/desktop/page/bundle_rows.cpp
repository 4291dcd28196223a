// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/bundle_rows.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

#include "base/urls.h"
#include "desktop/models/row_parts.h"
#include "store/records/sized_picture.h"

namespace quillet {

namespace {

constexpr std::size_t kMostIcons = 4;

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

QString sumText(const std::vector<StoreItem>& apps, const LocaleFormats& formats) {
  const bool isKnown = std::ranges::all_of(apps, [&](const StoreItem& app) {
    return app.price && app.currency && app.currency == apps.front().currency;
  });
  if (!isKnown) return {};
  double sum = 0;
  for (const StoreItem& app : apps) sum += *app.price;
  return sum > 0 ? QString::fromStdString(formats.currency(sum, *apps.front().currency))
                 : QString();
}

QString detailsOf(const std::vector<StoreItem>& apps, const LocaleFormats& formats) {
  if (apps.empty()) return {};
  const QString count =
      apps.size() == 1
          ? tr("1 app")
          : tr("%1 apps").arg(QLocale().toString(static_cast<qulonglong>(apps.size())));
  const QString sum = sumText(apps, formats);
  return sum.isEmpty() ? count : tr("%1, %2 one by one").arg(count, sum);
}

BundleRow::Icon iconOf(const StoreItem& app) {
  const std::string address = artworkAddress(app.artworkTemplate.value_or(""));
  return {isWebAddress(address) ? address : std::string(), nameLine(app.name)};
}

}  // namespace

std::vector<BundleRow> bundleRows(const std::vector<AppBundleInfo>& bundles,
                                  const LocaleFormats& formats) {
  std::vector<BundleRow> rows;
  for (const AppBundleInfo& info : bundles) {
    const StoreItem& bundle = info.bundle;
    BundleRow& row = rows.emplace_back();
    row.name = plainLine(bundle.name);
    if (row.name.isEmpty()) row.name = tr("Bundle");
    row.details = detailsOf(info.apps, formats);
    row.price = priceCell(bundle.priceFormatted, bundle.price, bundle.currency, formats).text;
    if (isWebAddress(bundle.url.value_or(""))) row.link = *bundle.url;
    const std::size_t count = std::min(kMostIcons, info.apps.size());
    for (std::size_t i = 0; i < count; ++i) row.icons.push_back(iconOf(info.apps[i]));
  }
  return rows;
}

}  // namespace quillet
