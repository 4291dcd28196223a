// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>

#include "desktop/models/view_world.h"
#include "desktop/page/storefront_shelf.h"
#include "system/locale_formats.h"

namespace quillet {

/// What the parts of a page reach the rest through. All of it outlives them.
struct PageWorld {
  ViewWorld view;
  std::shared_ptr<const LocaleFormats> formats;
  std::shared_ptr<StorefrontShelf> compared;
  /// Lets the user choose a collection for the app that is shown.
  std::function<void()> collect = [] {};
  /// Adds the app that is shown to those that are compared.
  std::function<void()> compare = [] {};
};

}  // namespace quillet
