// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>

#include "desktop/frame/counts_feed.h"
#include "desktop/frame/guide.h"
#include "desktop/models/view_world.h"

namespace quillet {

/// What would list on the command line what the window shows.
class ShownCommand {
 public:
  /// All outlive it.
  ShownCommand(const ViewWorld& world, const Guide& guide, const CountsFeed& counts);

  /// Absent where no command does.
  [[nodiscard]] std::optional<QString> text() const;

 private:
  ViewWorld world_;
  const Guide& guide_;
  const CountsFeed& counts_;
};

}  // namespace quillet
