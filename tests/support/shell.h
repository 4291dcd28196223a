// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

#include "support/temporary_folder.h"

namespace quillet {

/// What one of the machine's own shells prints, on either stream, of a script that it reads as if
/// somebody had pasted it.
inline std::string shellOutput(const std::string& shell, const std::string& script) {
  const TemporaryFolder folder;
  const std::string file = folder.path() / "script";
  std::ofstream(file) << script;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(
      popen((shell + " < " + file + " 2>&1").c_str(), "r"), pclose);
  std::string output;
  std::array<char, 4096> piece{};
  while (const std::size_t size = std::fread(piece.data(), 1, piece.size(), pipe.get())) {
    output.append(piece.data(), size);
  }
  return output;
}

}  // namespace quillet
