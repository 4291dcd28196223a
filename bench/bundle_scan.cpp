// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT
//
// bundle_scan make FOLDER COUNT: made-up apps of every kind, each with 40 files besides what names
// it, as a small Mac app has. Larger ones would bring the scan closer to a mere walk. bundle_scan
// FOLDER: scans them, and prints as JSON how many there were and how long reading them took, sizes
// apart.

#include <fmt/format.h>

#include <chrono>
#include <cstdlib>
#include <string_view>

#include "scan/application_scan.h"
#include "support/bundle_tree.h"

using namespace quillet;

namespace {

using Steady = std::chrono::steady_clock;

int scan(const char* folder) {
  const auto begin = Steady::now();
  auto end = begin;
  const auto noteEnd = [&end](const InstalledBundle&, const ScanProgress&) { end = Steady::now(); };
  const ScanResult result = scanApplications({folder}, {{}, noteEnd, {}});
  const std::chrono::duration<double, std::milli> reading = end - begin;
  fmt::print("{{\"bundles\":{},\"reading\":{:.1f}}}\n", result.bundles.size(), reading.count());
  return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2) return scan(argv[1]);
  if (argc != 4 || argv[1] != std::string_view("make")) return EXIT_FAILURE;
  makeBundleTree(argv[2], std::atoi(argv[3]), 40);
  return EXIT_SUCCESS;
}
