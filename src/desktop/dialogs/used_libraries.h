// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <vector>

namespace quillet {

/// A library that the program is built with.
struct UsedLibrary {
  QString name;
  QString version;  ///< the one that runs, where it tells; else the one of the build
  QString licence;
};

/// Those whose code or drawings are in the program or loaded by it.
[[nodiscard]] std::vector<UsedLibrary> usedLibraries();

}  // namespace quillet
