// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// quillet-manual KIND FILE: writes one of the generated files.

#include <cstdio>
#include <fstream>

#include "manual/generated_files.h"

namespace {

int refuse(const char* message) {
  (void)std::fprintf(stderr, "quillet-manual: %s\n", message);
  return 2;
}

bool write(const char* path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  return static_cast<bool>(file.flush());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return refuse("usage: quillet-manual bash|zsh|fish|man|skill FILE");
  for (const quillet::GeneratedFile& file : quillet::kGeneratedFiles) {
    if (file.kind != argv[1]) continue;
    return write(argv[2], file.text()) ? 0 : refuse("cannot write the file.");
  }
  return refuse("knows bash, zsh, fish, man and skill.");
}
