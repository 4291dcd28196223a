// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/page/block_table.h"
#include "desktop/page/link_button.h"
#include "desktop/page/note_row.h"
#include "library/collection_steps.h"

namespace quillet {

namespace {

class NotesBlock : public Block {
 public:
  NotesBlock(const QString& title, const PageWorld& world) : Block(title), world_(world) {
    auto* add = new LinkButton(tr("Add to Collection…"), kSmallControlType, {}, this);
    connect(add, &QAbstractButton::clicked, this, [this] { world_.collect(); });
    head().addWidget(add);
  }

  bool fill(const PageFacts& known) override {
    if (known.entries == shown_ && known.app == app_) return !shown_.empty();
    app_ = known.app;
    name_ = nameLine(known.name);
    shown_ = known.entries;
    for (NoteRow* row : std::exchange(rows_, {})) delete row;
    for (const PageEntry& entry : shown_) addRow(entry);
    return !shown_.empty();
  }

 private:
  void addRow(const PageEntry& entry) {
    const ViewWorld& view = world_.view;
    auto* row = new NoteRow(entry, dateText(entry.addedAt, view.clock.now(), view.zone), this);
    connect(row, &NoteRow::written, this,
            [this, key = entry.collection](const QString& note) { keep(key, note); });
    content().addWidget(row);
    rows_.push_back(row);
  }

  void keep(RowId collection, const QString& note) {
    world_.view.edits.perform({tr("Edit Note on “%1”").arg(name_),
                               tr("Changed the note on “%1”.").arg(name_),
                               tr("The note on “%1” was not changed.").arg(name_),
                               noting(collection, app_, note.toStdString())});
  }

  PageWorld world_;
  AppKey app_;
  QString name_;
  std::vector<PageEntry> shown_;
  std::vector<NoteRow*> rows_;
};

}  // namespace

Block* makeNotesBlock(const QString& title, const PageWorld& world) {
  return new NotesBlock(title, world);
}

}  // namespace quillet
