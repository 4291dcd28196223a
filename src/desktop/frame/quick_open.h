// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/frame/app_finder.h"

namespace quillet {

/// Leads to an app of the user's lists, or into a search for it.
class QuickOpen : public AppFinder {
  Q_OBJECT

 public:
  /// As AppFinder.
  QuickOpen(LibraryGateway& library, QWidget& window, std::function<std::string()> storefront);
};

}  // namespace quillet
