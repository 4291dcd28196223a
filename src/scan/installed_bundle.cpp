// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/installed_bundle.h"

namespace quillet {

std::optional<bool> needsRosetta(const InstalledBundle& bundle) {
  const auto& architectures = bundle.architectures;
  if (architectures.empty()) return std::nullopt;
  return architectures.contains(CpuArchitecture::x8664) &&
         !architectures.contains(CpuArchitecture::arm64);
}

}  // namespace quillet
