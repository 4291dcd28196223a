// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quillet {

// What an installation holds besides the program, made from the rows of commands and options.

[[nodiscard]] std::string bashCompletion();
[[nodiscard]] std::string zshCompletion();
[[nodiscard]] std::string fishCompletion();
[[nodiscard]] std::string agentSkill();
[[nodiscard]] std::string manualPage();  ///< in the "man" macros of roff, plain ASCII

struct GeneratedFile {
  std::string_view kind;
  std::string (*text)();
};

inline constexpr std::array<GeneratedFile, 5> kGeneratedFiles{{
    {"bash", bashCompletion},
    {"zsh", zshCompletion},
    {"fish", fishCompletion},
    {"man", manualPage},
    {"skill", agentSkill},
}};

}  // namespace quillet
