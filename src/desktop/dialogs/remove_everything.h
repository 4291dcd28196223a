// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QPointer>
#include <optional>

#include "desktop/models/view_world.h"
#include "library/removed_rows.h"

namespace quillet {

class PageText;

/// Asks whether all of the user's lists are to go, which cannot be undone, and does it.
class RemoveEverythingDialog : public QDialog {
  Q_OBJECT

 public:
  /// What the world refers to outlives the dialog. Without counts nothing can be removed.
  RemoveEverythingDialog(const ViewWorld& world, const std::optional<ListCounts>& counts,
                         QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] static QString contentText(const std::optional<ListCounts>& counts);
  void askForFile();
  void removeAll();
  static Task<> exportTo(QPointer<RemoveEverythingDialog> dialog, std::filesystem::path file);

  ViewWorld world_;
  PageText* said_;  ///< of the export
};

/// Opens it before `parent` with what the lists hold now, as far as that can be read, unless one is
/// open.
Task<> askToRemoveEverything(ViewWorld world, QPointer<QWidget> parent);

}  // namespace quillet
