// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include "desktop/images/image_store.h"
#include "desktop/page/app_page.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/library_folder.h"
#include "library/owned_apps.h"
#include "library/recorded_history.h"
#include "library/watched_apps.h"
#include "page_moments.h"
#include "support/event_loop.h"

namespace quillet {

/// Remembers what it was asked.
class KeptPrompts final : public Prompts {
 public:
  void openLink(const std::string& address) override { opened.push_back(address); }

  std::vector<std::string> opened;
};

/// A library and what a page of it needs around it. Tests use the storefront "us".
class PageTest : public LibraryServiceTest {
 protected:
  PageTest() {
    clock_.setNow(kNow);
    library_.use(*store_);
  }

  template <typename Operation, typename... Arguments>
  void change(Operation operation, Arguments... arguments) {
    runTask(store_->change(std::move(operation), std::move(arguments)...));
  }

  [[nodiscard]] ViewWorld world() {
    return {library_, images_, clock_, settings_, [](Instant) { return std::chrono::seconds(0); },
            {}};
  }

  static inline const Instant kNow = moment(2026, 11, 22, 12);
  LibraryGateway library_;
  ImageStore images_{http_, clock_, {}};
  KeptPrompts prompts_;
};

}  // namespace quillet
