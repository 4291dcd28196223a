// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "library/edit_steps.h"
#include "net/task.h"

namespace quillet {

class LibraryGateway;

/// A change of the library that the user asked for.
struct LibraryEdit {
  QString name;     ///< after "Undo" and "Redo": "Remove “Paperfold”"
  QString done;     ///< what is said when it is done: "Removed “Paperfold”."
  QString notDone;  ///< before the reason why not: "“Paperfold” was not removed."
  EditStep step;
  QString unchanged = {};  ///< said where there was nothing to change; empty for nothing
  /// Turns what goes with it outside the library, and turns it back with each undo; empty for
  /// nothing. Called on the event loop's thread once the library is changed.
  std::function<void()> beside = {};
  /// Says what is said instead of `done` or `unchanged`, where only the step itself finds that out.
  /// Called once, on the event loop's thread, when the step was made.
  std::function<QString()> report = {};
};

/// Makes the user's changes of the library, one after the other, and keeps the last ones of this
/// run so that they can be undone, newest first, and then done again. What the monitor writes in
/// between stays: an undo touches only what its edit did.
///
/// An object of the event-loop thread.
class EditHistory : public QObject {
  Q_OBJECT

 public:
  /// The library outlives it.
  explicit EditHistory(LibraryGateway& library);

  /// Once those before it are done. One that changes nothing is not kept.
  void perform(LibraryEdit edit);
  /// Likewise, but for good: neither this one nor any before it can be undone then.
  void performForGood(LibraryEdit edit);
  /// The newest change, or the newest that was undone; nothing where there is none.
  void undo();
  void redo();

  /// What these would do; empty for nothing.
  [[nodiscard]] QString undoName() const;
  [[nodiscard]] QString redoName() const;

 Q_SIGNALS:
  /// An edit was made: `done` is to be said, with the offer to undo it.
  void performed(const QString& done);
  /// It was undone or done again: to be said.
  void turned(const QString& said);
  /// It could not be: nothing has changed. In a whole sentence.
  void failed(const QString& why);
  /// What can be undone and redone is another.
  void changed();

 private:
  using Kept = std::vector<LibraryEdit>;  ///< newest last; each with the step to take next
  enum class Way { make, makeForGood, undo, redo };
  struct Job {
    Way way = Way::make;
    LibraryEdit edit;  ///< of one to be made
  };

  void queue(Job job);
  [[nodiscard]] std::optional<LibraryEdit> takeEdit(Job& job);
  void keep(Way way, LibraryEdit edit);
  void forgetAll();
  void giveBack(Way way, LibraryEdit edit, const QString& why);
  static Task<> work(QPointer<EditHistory> history);
  static Task<> turn(QPointer<EditHistory> history, Way way, LibraryEdit edit);

  LibraryGateway& library_;
  Kept done_;
  Kept undone_;
  std::deque<Job> jobs_;
  bool isWorking_ = false;
};

}  // namespace quillet
