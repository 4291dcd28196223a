// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/compare_finder.h"

namespace quillet {

CompareFinder::CompareFinder(LibraryGateway& library, QWidget& window,
                             std::function<std::string()> storefront)
    : ListedFinder({tr("Add App to Compare"), tr("Name of an app"),
                    tr("Compare an app of your lists"), tr("Apps")},
                   library, window, std::move(storefront)) {}

QString CompareFinder::otherText(const QString& text) const {
  return tr("Search the store for “%1”").arg(text);
}

}  // namespace quillet
