// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <filesystem>

#include "desktop/dialogs/library_file.h"
#include "desktop/models/import_model.h"
#include "desktop/models/view_world.h"

class QDialog;

namespace quillet {

class Snackbar;

/// The user's lists as files: what goes out, and what comes in.
class LibraryFiles : public QObject {
  Q_OBJECT

 public:
  /// All outlive it; sheets stand before `window`.
  LibraryFiles(const ViewWorld& world, Snackbar& snackbar, QWidget& window);

  /// Lets the user choose a file.
  void askForImport();
  /// Shows what an import of that file would do. What is no exported library is told, and nothing
  /// is imported.
  void previewImport(const std::filesystem::path& file);

  /// Lets the user choose what is exported. `collection`: the one to begin with; 0 for everything.
  void askForExport(ExportFormat format, RowId collection = 0);

 private:
  struct Asked {
    LibraryExport library;
    std::optional<std::size_t> collection;  ///< its place in the library
  };

  static Task<> read(QPointer<LibraryFiles> files, std::filesystem::path file, int generation);
  static Task<> readForExport(QPointer<LibraryFiles> files, ExportFormat format, RowId collection,
                              int generation);
  void showImport(const std::filesystem::path& file, ReadLibrary library);
  void showExport(Asked asked, ExportFormat format);
  void show(QDialog& sheet);
  void import(LibraryExport chosen);

  ViewWorld world_;
  Snackbar& snackbar_;
  QWidget& window_;
  QPointer<QDialog> sheet_;  ///< the one that is open
  int generation_ = 0;       ///< of what was asked for last
};

}  // namespace quillet
