// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "base/enum_table.h"

namespace quillet {

/// What a program is compiled for.
enum class CpuArchitecture { arm64, x8664, i386, powerPc, other };

// Stored; never change.
inline constexpr EnumTable<CpuArchitecture, 5> kCpuArchitectureWords{{
    {CpuArchitecture::arm64, "arm64"},
    {CpuArchitecture::x8664, "x86_64"},
    {CpuArchitecture::i386, "i386"},
    {CpuArchitecture::powerPc, "ppc"},
    {CpuArchitecture::other, "other"},
}};
static_assert(isComplete(kCpuArchitectureWords, CpuArchitecture::other));

/// All that one program holds; empty where that is not known.
using CpuArchitectures = std::set<CpuArchitecture>;

/// Their words, a blank between them: "arm64 x86_64". Absent where none is known.
[[nodiscard]] std::optional<std::string> wordsOf(const CpuArchitectures& architectures);

/// A word that is not known is another architecture.
[[nodiscard]] CpuArchitectures architecturesIn(std::string_view words);

/// Whether a Mac with Apple silicon runs it by translation alone. Absent where the architectures
/// are not known; a program for neither processor is not translated.
[[nodiscard]] std::optional<bool> needsRosetta(const CpuArchitectures& architectures);

/// Whether it is an Intel program of 32 bits and nothing newer, which no macOS since 10.15 runs.
[[nodiscard]] bool is32BitAlone(const CpuArchitectures& architectures);

}  // namespace quillet
