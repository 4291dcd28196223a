// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "desktop/platform/desktop_appearance.h"
#include "desktop/platform/login_item.h"
#include "desktop/services/command_tool.h"
#include "desktop/services/notification_choice.h"
#include "desktop/services/updates.h"

namespace quillet {

struct DiagnosticSources;

/// What the system says where the user chose nothing, and what it alone keeps.
struct SystemChoices {
  std::string storefront = "us";                   ///< of the locale
  const DesktopAppearance* appearance = nullptr;   ///< null where nothing is known of it
  LoginItem* loginItem = nullptr;                  ///< null where nothing can be started at login
  NotificationChoice* notifications = nullptr;     ///< null where nobody can be notified
  std::filesystem::path library = {};              ///< the database
  ToolPlaces tool = {};                            ///< for the command-line tool
  std::string skill = {};                          ///< for AI agents, stamped; empty for none
  Updates* updates = nullptr;                      ///< null where nobody looks for any
  const DiagnosticSources* diagnostics = nullptr;  ///< null where nothing is told of the machine
};

}  // namespace quillet
