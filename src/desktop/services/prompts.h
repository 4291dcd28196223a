// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <string>

class QObject;
class QPagedPaintDevice;

namespace quillet {

/// Where the user is to choose a file or a folder.
struct FileQuestion {
  QString title;
  /// A folder, and for a file to be saved its name in it, whose ending it keeps.
  std::filesystem::path suggested;
};

using FileAnswer = std::function<void(const std::filesystem::path& chosen)>;
using PrintAnswer = std::function<void(QPagedPaintDevice& printer)>;

/// What windows ask of whoever sits before them, or of the desktop around them. Tests answer it.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Opens a page of the web where the user reads such. Anything but an absolute http or https
  /// address is passed over: nothing in a record starts a program.
  virtual void openLink(const std::string& address) = 0;

  /// Shows the folder of a file in the desktop's program for files.
  virtual void showInFiles(const std::filesystem::path& file) = 0;

  // All return at once. `take` is called later, unless the user wants none or `context` is gone.

  /// Whether a file that exists may be replaced is asked before it is chosen.
  virtual void chooseSaveFile(const FileQuestion& question, const QObject* context,
                              FileAnswer take) = 0;
  /// One that exists, with the ending of the suggested name.
  virtual void chooseFile(const FileQuestion& question, const QObject* context,
                          FileAnswer take) = 0;
  virtual void chooseFolder(const FileQuestion& question, const QObject* context,
                            FileAnswer take) = 0;
  /// `take` prints; `title` is what the print is called.
  virtual void choosePrinter(const QString& title, const QObject* context, PrintAnswer take) = 0;
};

}  // namespace quillet
