// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/quick_open.h"

namespace quillet {

QuickOpen::QuickOpen(LibraryGateway& library, QWidget& window,
                     std::function<std::string()> storefront)
    : AppFinder(
          {tr("Go to App"), tr("Name of an app"), tr("Go to an app in your lists"), tr("Apps")},
          library, window, std::move(storefront)) {}

}  // namespace quillet
