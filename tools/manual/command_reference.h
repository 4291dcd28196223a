// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/command_line_options.h"
#include "cli/command_table.h"

namespace quillet {

// The desktop application's, where no command stands.
inline constexpr SwitchRow kBackgroundSwitch{"--background", "", "Run without a window"};
inline constexpr SwitchRow kCheckPricesSwitch{"--check-prices", "", "Check prices now"};

/// What may stand in a command's place.
inline constexpr SwitchRow kFirstSwitches[] = {kHelpSwitch, kVersionSwitch, kBackgroundSwitch,
                                               kCheckPricesSwitch};

/// The options that a command heeds, in the order of their rows. The pointers live as long as the
/// process.
[[nodiscard]] std::vector<const OptionRow*> optionsOf(const CommandRow& command);

/// The words that an option's value can be completed with; empty where its value is free.
[[nodiscard]] std::vector<std::string_view> wordsFor(const OptionRow& option);

/// The same for a command's operand.
[[nodiscard]] std::vector<std::string_view> operandWords(const CommandRow& command);

/// In single quotes, for any shell but fish.
[[nodiscard]] std::string quotedForShell(std::string_view text);

/// `text` with a backslash before each of the characters in `special`.
[[nodiscard]] std::string escaped(std::string_view text, std::string_view special);

}  // namespace quillet
