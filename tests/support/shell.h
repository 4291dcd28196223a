// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>
#include <fstream>
#include <string>

#include "support/temporary_folder.h"

namespace quillet {

/// What one of the machine's own shells prints, on either stream, of a script that it reads as if
/// somebody had pasted it.
inline std::string shellOutput(const std::string& shell, const std::string& script) {
  const TemporaryFolder folder;
  const std::string file = folder.path() / "script";
  std::ofstream(file) << script;
  [[maybe_unused]] const int status =
      std::system((shell + " <" + file + " >" + file + ".out 2>&1").c_str());
  return contentOf(file + ".out");
}

}  // namespace quillet
