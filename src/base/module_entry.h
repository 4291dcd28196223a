// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

/// Defines the one function by which the executable calls a module: `enter(argc, argv)` returns the
/// status. The executable has a C++ library of its own, so that no exception may reach it; one ends
/// as a failure.
#define QUILLET_MODULE_ENTRY(enter)                                                            \
  extern "C" __attribute__((visibility("default"))) int quillet_entry(int argc, char** argv) { \
    try {                                                                                      \
      return (enter)(argc, argv);                                                              \
    } catch (...) {                                                                            \
      return 3;                                                                                \
    }                                                                                          \
  }
