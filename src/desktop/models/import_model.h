// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractItemModel>
#include <memory>
#include <vector>

#include "library/library_import.h"
#include "system/locale_formats.h"

namespace quillet {

/// An exported library as it was read, and what its import would do.
struct ReadLibrary {
  std::shared_ptr<const LibraryExport> document;
  ImportPreview preview;
};

/// What a row of the preview shows.
struct ImportLine {
  QString text;
  QString remark;        ///< behind the text, quieter: "joins your own"
  QString detail;        ///< at the end
  QString icon;          ///< of a group or a collection; empty for an app, which has a tile
  bool isGroup = false;  ///< one of the rows at the top
  bool isNew = false;    ///< a collection that the import makes
  bool canTick = true;   ///< not what is there already
};

/// What an import of what is ticked adds, of how much.
struct ImportTally {
  std::size_t added = 0;  ///< watched apps and apps of collections
  std::size_t all = 0;    ///< in the file, with those that are there already
  std::size_t made = 0;   ///< collections

  friend bool operator==(const ImportTally&, const ImportTally&) = default;
};

/// What a file brings, to be ticked: the watchlist with its apps, and the collections, each as a
/// whole, and those of one name together. All that is new is ticked at first. Texts are made when
/// they are asked for, so that a file may hold hundreds of thousands of apps.
class ImportModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  ImportModel(ReadLibrary library, const UserLocale& locale, QObject* parent = nullptr);

  [[nodiscard]] ImportLine line(const QModelIndex& index) const;
  [[nodiscard]] Qt::CheckState stateOf(const QModelIndex& index) const;
  /// Ticks a row, or takes its tick; of a group all of its rows.
  void toggle(const QModelIndex& index);
  /// Whether anything that could be has no tick.
  [[nodiscard]] bool canTickMore() const;
  /// Whether there is anything to import: something to add, or nothing that could be added, which
  /// then is said.
  [[nodiscard]] bool canImport() const;
  void tickAll();

  [[nodiscard]] ImportTally tally() const;
  /// "Adds 75 of 87 items. Nothing of yours is replaced; one undo takes all back."
  [[nodiscard]] QString summary() const;
  [[nodiscard]] const LibraryExport& document() const { return *library_.document; }
  /// The document without what has no tick.
  [[nodiscard]] LibraryExport chosen() const;

  [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
  using QObject::parent;
  [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 Q_SIGNALS:
  /// What is ticked is another.
  void ticked();

 private:
  enum class Group { watchlist, collections };
  struct Ticks {
    Group group;
    std::vector<char> set;    ///< one a row
    std::vector<char> isNew;  ///< whether there is anything to tick
    std::size_t count = 0;    ///< of those that are set
    std::size_t most = 0;     ///< that can be
  };

  [[nodiscard]] const Ticks& ticksOf(const QModelIndex& index) const;
  [[nodiscard]] ImportLine groupLine(const Ticks& ticks) const;
  [[nodiscard]] ImportLine appLine(std::size_t item) const;
  [[nodiscard]] ImportLine collectionLineOf(std::size_t item) const;
  [[nodiscard]] QString watchDetail(const WatchedItem& item) const;
  [[nodiscard]] QString sentence(const QModelIndex& index) const;
  [[nodiscard]] std::vector<std::size_t> likeRow(const Ticks& ticks, std::size_t item) const;
  void setAll(Ticks& ticks, bool isSet);
  void tell(int group);

  ReadLibrary library_;
  LocaleFormats formats_;
  std::vector<Ticks> groups_;  ///< those of which the file holds something
};

}  // namespace quillet
