// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include "desktop/page/app_page.h"
#include "desktop/support/scripted_store.h"
#include "desktop/support/view_parts.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/library_folder.h"
#include "library/owned_apps.h"
#include "library/recorded_history.h"
#include "library/watched_apps.h"
#include "page_moments.h"
#include "support/event_loop.h"

namespace quillet {

/// A library and what a page of it needs around it. Tests use the storefront "us".
class PageTest : public LibraryServiceTest {
 protected:
  PageTest() {
    clock_.setNow(kNow);
    library_.use(*store_);
  }
  void TearDown() override {
    stop_.requestStop();
    handlePendingEvents();
    runTask(parts_.store.ended());
  }

  /// What is asked of the store from now on is answered by the test.
  void openStore() { parts_.store.use(web_.services(), stop_.token()); }

  /// Until the library and the store have nothing left to answer.
  void settle() {
    for (int round = 0; round < 3; ++round) {
      runTask(store_->read([](SQLite::Database& /*database*/) { return 0; }));
      handlePendingEvents();
    }
  }

  template <typename Operation, typename... Arguments>
  void change(Operation operation, Arguments... arguments) {
    runTask(store_->change(std::move(operation), std::move(arguments)...));
  }

  [[nodiscard]] ViewWorld world() { return parts_.world(); }

  static inline const Instant kNow = moment(2026, 11, 22, 12);
  ViewParts parts_{http_, clock_, settings_};
  LibraryGateway& library_ = parts_.library;
  KeptPrompts& prompts_ = parts_.prompts;
  ScriptedStore web_{http_, clock_};
  StopSource stop_;
};

}  // namespace quillet
