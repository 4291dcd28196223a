// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <vector>

#include "store/records/app_bundle_info.h"
#include "system/locale_formats.h"

namespace quillet {

/// A bundle as the page shows it.
struct BundleRow {
  struct Icon {
    std::string address;  ///< empty where the store did not say
    QString name;

    friend bool operator==(const Icon&, const Icon&) = default;
  };

  QString name;
  QString details;          ///< "4 apps, $38.96 one by one"
  QString price;            ///< empty where it is unknown
  std::string link;         ///< a web address, or empty
  std::vector<Icon> icons;  ///< of the first apps inside

  friend bool operator==(const BundleRow&, const BundleRow&) = default;
};

/// What the apps inside cost one by one is said where all their prices are known, in one currency.
[[nodiscard]] std::vector<BundleRow> bundleRows(const std::vector<AppBundleInfo>& bundles,
                                                const LocaleFormats& formats);

}  // namespace quillet
