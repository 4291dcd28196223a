// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Runs a program's benchmarks where an event loop can be had.

#include <benchmark/benchmark.h>

#include <QCoreApplication>

int main(int argc, char** argv) {
  const QCoreApplication eventLoop(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
