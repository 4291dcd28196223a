// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quillet {

/// What becomes of warnings and the like of Qt and of the libraries behind it.
enum class LibraryMessages {
  quiet,   ///< nothing: standard error holds our own lines only
  logged,  ///< one line each on standard error: "lib warning qt.network.ssl: No TLS backend"
};

/// To be called before the application object is made. Either way a fatal message, such as that of
/// a display which does not answer, ends the process with one line and the status of a failure,
/// where Qt would abort.
void handleLibraryMessages(LibraryMessages fate);

}  // namespace quillet
