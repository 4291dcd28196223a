// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QString>

#include "desktop/models/import_model.h"
#include "desktop/models/view_world.h"

class QPushButton;

namespace quillet {

class ImportTree;
class LinkButton;
class PageText;

/// What an import of a file would add, for the user to choose from. Accepted, it holds what is to
/// be imported.
class ImportPreviewDialog : public QDialog {
  Q_OBJECT

 public:
  /// `file` is the file's name.
  ImportPreviewDialog(const QString& file, ReadLibrary library, const ViewWorld& world,
                      QWidget* parent);
  ~ImportPreviewDialog() override;

  [[nodiscard]] LibraryExport chosen() const { return rows_.chosen(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void lay(const QString& origin);
  void showSummary();

  ImportModel rows_;
  ImportTree* tree_;
  PageText* summary_;
  LinkButton* all_;
  QPushButton* imports_;
};

}  // namespace quillet
