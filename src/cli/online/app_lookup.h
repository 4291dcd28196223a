// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>
#include <string>
#include <vector>

#include "cli/online/command_call.h"
#include "store/records/app_enrichment.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// The one app that a command is about, as it was named. Throws CLIError where there is not exactly
/// one.
[[nodiscard]] std::string appOperand(std::string_view command,
                                     const std::vector<std::string>& operands);

/// The app that `operand` names in the storefront of the call: by track ID where it is all digits,
/// else by bundle ID. Where a Mac app and an iOS app share the bundle ID, the call's platform
/// chooses. Throws CLIError (not found) that says how to find the app elsewhere.
Task<ITunesApp> lookUpApp(std::string operand, CommandCall call, StopToken stop = {});

/// The platform of the build that the record describes.
[[nodiscard]] Platform ownPlatform(const ITunesApp& app);

/// Whether the record describes the build for `platform`: iPhone and iPad have one in common.
[[nodiscard]] bool describesBuild(const ITunesApp& app, Platform platform);

/// Whether the catalog knows a build for `platform`. Asked for one that there is not, it may answer
/// with the other one, whose device families give it away.
[[nodiscard]] bool knowsBuild(const AppEnrichment& enrichment, Platform platform);

/// One line for someone who asked for a build that there is not; empty where there is one.
[[nodiscard]] std::string missingBuildNotice(const ITunesApp& app, Platform platform,
                                             const AppEnrichment& enrichment);

/// One line for someone who has to do without `what`: "the catalog could not be read: " and why.
[[nodiscard]] std::string unreadNotice(std::string_view what, const std::exception_ptr& error);

}  // namespace quillet
