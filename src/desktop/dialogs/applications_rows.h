// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/dialogs/settings_page.h"
#include "desktop/models/view_world.h"

namespace quillet {

/// The rows about scans of installed apps: in which folders, and whether at the start. What the
/// world refers to outlives the page.
void addApplications(SettingsPage& page, const ViewWorld& views);

}  // namespace quillet
