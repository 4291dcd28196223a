// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/streams.h"
#include "system/environment.h"

namespace quillet {

/// What becomes of a write that fails: standard output reports it, standard error has nowhere to.
enum class WriteFailure { report, ignore };

/// A file descriptor of the process, unbuffered. When its reader has gone (a closed pipe), writing
/// does nothing: nobody is left to tell.
class FileDescriptorStream final : public TextStream {
 public:
  FileDescriptorStream(int descriptor, WriteFailure failure)
      : descriptor_(descriptor), failure_(failure) {}

  void write(std::string_view text) override;

 private:
  int descriptor_;
  WriteFailure failure_;
};

/// The style for a descriptor: colour only on a terminal that wants it, the terminal's width (that
/// of COLUMNS, else 80, where it does not say), characters beyond ASCII only where the locale's
/// encoding is UTF-8. Elsewhere the width is that of COLUMNS alone, and long texts are whole.
[[nodiscard]] TextStyle textStyleOf(int descriptor, const Environment& environment);

/// The columns of a terminal; 0 where the descriptor is none.
[[nodiscard]] std::size_t terminalColumns(int descriptor, const Environment& environment);

/// The columns that a progress line on the descriptor may fill; 0 where none may be shown: on
/// anything but a terminal, and where the user wants plain lines only.
[[nodiscard]] std::size_t progressWidth(int descriptor, const Environment& environment);

/// Erases the terminal's current line when the process is interrupted, for one that shows progress
/// there; it ends as it would have.
void eraseLineOnInterrupt();

}  // namespace quillet
