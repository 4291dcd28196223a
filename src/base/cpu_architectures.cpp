// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/cpu_architectures.h"

#include <algorithm>

namespace quillet {

std::optional<std::string> wordsOf(const CpuArchitectures& architectures) {
  std::string words;
  for (const CpuArchitecture each : architectures) {
    if (!words.empty()) words += ' ';
    words += textOf(kCpuArchitectureWords, each);
  }
  return words.empty() ? std::nullopt : std::optional(words);
}

CpuArchitectures architecturesIn(std::string_view words) {
  CpuArchitectures architectures;
  while (!words.empty()) {
    const std::size_t end = std::min(words.find(' '), words.size());
    const std::string_view word = words.substr(0, end);
    if (!word.empty())
      architectures.insert(valueOf(kCpuArchitectureWords, word).value_or(CpuArchitecture::other));
    words.remove_prefix(std::min(end + 1, words.size()));
  }
  return architectures;
}

std::optional<bool> needsRosetta(const CpuArchitectures& architectures) {
  if (architectures.empty()) return std::nullopt;
  return architectures.contains(CpuArchitecture::x8664) &&
         !architectures.contains(CpuArchitecture::arm64);
}

bool is32BitAlone(const CpuArchitectures& architectures) {
  return architectures.contains(CpuArchitecture::i386) &&
         std::ranges::all_of(architectures, [](CpuArchitecture each) {
           return each == CpuArchitecture::i386 || each == CpuArchitecture::powerPc;
         });
}

}  // namespace quillet
