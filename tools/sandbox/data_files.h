// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/// The files of data/, which are part of the program.
namespace quillet::sandbox::data {

[[nodiscard]] std::string apps();
[[nodiscard]] std::string reviews();
[[nodiscard]] std::string words();

}  // namespace quillet::sandbox::data
