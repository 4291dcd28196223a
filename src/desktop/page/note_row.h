// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

#include "desktop/models/page_facts.h"

class QSpacerItem;
class QToolButton;

namespace quillet {

class NoteEditor;
class PageText;

/// One collection that an app is in: its name, the date, the note below, which is edited there.
class NoteRow : public QWidget {
  Q_OBJECT

 public:
  NoteRow(const PageEntry& entry, const QString& date, QWidget* parent);

  [[nodiscard]] RowId collection() const { return entry_.collection; }
  void edit();

 Q_SIGNALS:
  /// The user wrote the note.
  void written(const QString& note);

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void fit();
  void end();

  PageEntry entry_;
  QString name_;
  QString icon_;
  QString date_;
  PageText* note_;
  QToolButton* edit_;
  QPointer<NoteEditor> editor_;
  QSpacerItem* dateRoom_;  ///< the layout's
};

}  // namespace quillet
