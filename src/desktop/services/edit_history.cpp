// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/edit_history.h"

#include <utility>

#include "desktop/services/library_gateway.h"

namespace quillet {

namespace {

constexpr std::size_t kKeptEdits = 50;

}  // namespace

EditHistory::EditHistory(LibraryGateway& library) : library_(library) {}

void EditHistory::perform(LibraryEdit edit) { queue({Way::make, std::move(edit)}); }

void EditHistory::performForGood(LibraryEdit edit) { queue({Way::makeForGood, std::move(edit)}); }

void EditHistory::undo() { queue({Way::undo, {}}); }

void EditHistory::redo() { queue({Way::redo, {}}); }

QString EditHistory::undoName() const { return done_.empty() ? QString() : done_.back().name; }

QString EditHistory::redoName() const { return undone_.empty() ? QString() : undone_.back().name; }

void EditHistory::queue(Job job) {
  jobs_.push_back(std::move(job));
  if (!isWorking_) detach(work(this), "An edit");
}

Task<> EditHistory::work(QPointer<EditHistory> history) {
  history->isWorking_ = true;
  while (history && !history->jobs_.empty()) {
    Job job = std::move(history->jobs_.front());
    history->jobs_.pop_front();
    if (std::optional<LibraryEdit> edit = history->takeEdit(job))
      co_await turn(history, job.way, *std::move(edit));
  }
  if (history) history->isWorking_ = false;
}

/// The edit that the job is about: when it is its turn, and not earlier.
std::optional<LibraryEdit> EditHistory::takeEdit(Job& job) {
  if (job.way == Way::make || job.way == Way::makeForGood) return std::move(job.edit);
  Kept& from = job.way == Way::undo ? done_ : undone_;
  if (from.empty()) return std::nullopt;
  LibraryEdit edit = std::move(from.back());
  from.pop_back();
  return edit;
}

Task<> EditHistory::turn(QPointer<EditHistory> history, Way way, LibraryEdit edit) {
  QString why;
  EditStep back;
  try {
    back = co_await history->library_.change(edit.step.run);
  } catch (const std::exception& error) {
    // Whatever a step throws, those behind it have their turn.
    why = QString::fromUtf8(error.what());
  }
  if (!history) co_return;
  if (way == Way::make && why.isEmpty() && edit.report)
    edit.done = edit.unchanged = std::exchange(edit.report, nullptr)();
  if (!why.isEmpty()) {
    history->giveBack(way, std::move(edit), why);
  } else if (way == Way::makeForGood) {
    if (edit.beside) edit.beside();
    history->forgetAll();
    Q_EMIT history->turned(edit.done);
  } else if (back) {
    if (edit.beside) edit.beside();
    edit.step = std::move(back);
    history->keep(way, std::move(edit));
  } else if (way != Way::make) {
    Q_EMIT history->turned(tr("Nothing was left to do."));
  } else if (!edit.unchanged.isEmpty()) {
    Q_EMIT history->turned(edit.unchanged);
  }
  if (history) Q_EMIT history->changed();
}

void EditHistory::keep(Way way, LibraryEdit edit) {
  const QString name = edit.name;
  const QString done = edit.done;
  Kept& to = way == Way::undo ? undone_ : done_;
  to.push_back(std::move(edit));
  if (to.size() > kKeptEdits) to.erase(to.begin());
  if (way == Way::make) {
    undone_.clear();
    Q_EMIT performed(done);
  } else {
    Q_EMIT turned((way == Way::undo ? tr("Undone: %1.") : tr("Done again: %1.")).arg(name));
  }
}

void EditHistory::forgetAll() {
  done_.clear();
  undone_.clear();
}

/// It stands where it stood.
void EditHistory::giveBack(Way way, LibraryEdit edit, const QString& why) {
  const QString what = way == Way::undo   ? tr("Nothing was undone.")
                       : way == Way::redo ? tr("Nothing was done again.")
                                          : edit.notDone;
  if (way == Way::undo || way == Way::redo)
    (way == Way::undo ? done_ : undone_).push_back(std::move(edit));
  Q_EMIT failed(what + u' ' + why);
}

}  // namespace quillet
