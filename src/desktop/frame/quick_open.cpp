// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/quick_open.h"

namespace quillet {

QuickOpen::QuickOpen(LibraryGateway& library, QWidget& window,
                     std::function<std::string()> storefront)
    : ListedFinder(
          {tr("Go to App"), tr("Name of an app"), tr("Go to an app in your lists"), tr("Apps")},
          library, window, std::move(storefront)) {}

QString QuickOpen::otherText(const QString& text) const {
  return tr("Search the store for “%1”").arg(text);
}

void QuickOpen::take(const ListedApp& listed) { Q_EMIT chosen(placeOf(listed)); }

void QuickOpen::takeOther(const QString& text) { Q_EMIT searched(text); }

}  // namespace quillet
