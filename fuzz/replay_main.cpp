// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Runs a fuzz target over folders of kept inputs, where no fuzzer is linked.

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzzing.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::uint8_t> readBytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::size_t replay(const fs::path& folder) {
  std::size_t count = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const auto bytes = readBytes(entry.path());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    ++count;
  }
  return count;
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) count += replay(argv[i]);
  fmt::print("{} inputs replayed\n", count);
  // An empty corpus would pass for ever.
  return count > 0 ? 0 : 1;
}
