// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QPointer>
#include <filesystem>
#include <memory>
#include <string>

#include "desktop/dialogs/library_file.h"
#include "desktop/models/view_world.h"

class QComboBox;
class QPushButton;

namespace quillet {

class PageText;
class SegmentedControl;

/// Asks which of the user's lists are to be exported, and how, says how much that is, and writes
/// the file.
class ExportLibraryDialog : public QDialog {
  Q_OBJECT

 public:
  /// `collection`: the place of the one that is chosen at first; absent for everything. What the
  /// world refers to outlives the dialog.
  ExportLibraryDialog(std::shared_ptr<const LibraryExport> library, ExportFormat format,
                      std::optional<std::size_t> collection, const ViewWorld& world,
                      QWidget* parent);

 Q_SIGNALS:
  /// It is written; what is to be said of it.
  void exported(const std::filesystem::path& file, const QString& said);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void lay();
  void fill();
  [[nodiscard]] LibraryExport chosen() const;
  [[nodiscard]] ExportFormat format() const;
  void measure();
  void fit();
  void askForFile();
  static Task<> render(QPointer<ExportLibraryDialog> dialog, LibraryExport document,
                       ExportFormat format, int generation);
  static Task<> writeTo(QPointer<ExportLibraryDialog> dialog, std::filesystem::path file,
                        std::shared_ptr<const std::string> text, QString amount);

  ViewWorld world_;
  std::shared_ptr<const LibraryExport> library_;
  QComboBox* what_;
  SegmentedControl* format_;
  PageText* use_;  ///< what the format is good for
  PageText* amount_;
  QPushButton* exports_;
  std::shared_ptr<const std::string> text_;  ///< of the file; null until it is made
  int generation_ = 0;                       ///< of what is chosen
};

}  // namespace quillet
