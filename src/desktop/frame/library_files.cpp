// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/library_files.h"

#include <QFile>
#include <algorithm>
#include <utility>

#include "base/errors.h"
#include "desktop/dialogs/export_library.h"
#include "desktop/dialogs/import_preview.h"
#include "desktop/frame/snackbar.h"
#include "desktop/look/widgets.h"
#include "library/collections.h"
#include "library/library_export_json.h"
#include "net/worker.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

QString nameOf(const std::filesystem::path& file) {
  return QFile::decodeName(file.filename().c_str()).simplified();
}

std::shared_ptr<const LibraryExport> readFile(const std::filesystem::path& file) {
  return std::make_shared<const LibraryExport>(
      readLibraryExport(readWholeFile(file, kLargestExport)));
}

ReadLibrary previewOf(SQLite::Database& database,
                      const std::shared_ptr<const LibraryExport>& document) {
  return {document, previewImport(database, *document)};
}

}  // namespace

LibraryFiles::LibraryFiles(const ViewWorld& world, Snackbar& snackbar, QWidget& window)
    : world_(world), snackbar_(snackbar), window_(window) {}

void LibraryFiles::askForImport() {
  world_.prompts.chooseFile({tr("Import From File"), libraryFolder(world_) / "Library.json"}, this,
                            [this](const std::filesystem::path& file) {
                              rememberLibraryFolder(world_, file);
                              previewImport(file);
                            });
}

void LibraryFiles::previewImport(const std::filesystem::path& file) {
  detach(read(this, file, ++generation_), "An import");
}

Task<> LibraryFiles::read(QPointer<LibraryFiles> files, std::filesystem::path file,
                          int generation) {
  QString why;
  ReadLibrary library;
  try {
    auto decode = [file] { return readFile(file); };
    const auto document = co_await onWorker(std::move(decode));
    if (!files) co_return;
    library = co_await files->world_.library.read(previewOf, document);
  } catch (const DecodingError& error) {
    why = tr("“%1” is no exported library: %2.").arg(nameOf(file), QString::fromUtf8(error.what()));
  } catch (const std::exception& error) {
    why = QString::fromUtf8(error.what());
  }
  if (!files || files->generation_ != generation) co_return;
  if (!why.isEmpty()) co_return files->snackbar_.say(tr("Nothing was imported. %1").arg(why));
  files->showImport(file, std::move(library));
}

void LibraryFiles::show(QDialog& sheet) {
  if (sheet_ != nullptr) sheet_->reject();
  sheet_ = &sheet;
  sheet.setModal(true);
  bringUp(sheet);
}

void LibraryFiles::showImport(const std::filesystem::path& file, ReadLibrary library) {
  auto* sheet = new ImportPreviewDialog(nameOf(file), std::move(library), world_, &window_);
  connect(sheet, &QDialog::accepted, this, [this, sheet] { import(sheet->chosen()); });
  show(*sheet);
}

/// In one step, which is said with its counts and undone as one.
void LibraryFiles::import(LibraryExport chosen) {
  auto counts = std::make_shared<ImportCounts>();
  LibraryEdit edit{
      tr("Import"),
      {},
      tr("Nothing was imported."),
      importing(std::make_shared<const LibraryExport>(std::move(chosen)), world_.clock.now(),
                [counts](const ImportCounts& known) { *counts = known; })};
  edit.report = [counts] { return QString::fromStdString(reportLine(*counts)); };
  world_.edits.perform(std::move(edit));
}

void LibraryFiles::askForExport(ExportFormat format, RowId collection) {
  detach(readForExport(this, format, collection, ++generation_), "An export");
}

Task<> LibraryFiles::readForExport(QPointer<LibraryFiles> files, ExportFormat format,
                                   RowId collection, int generation) {
  QString why;
  Asked asked;
  try {
    const auto everything = [collection,
                             now = files->world_.clock.now()](SQLite::Database& database) {
      Asked read{exportLibrary(database, now), {}};
      const std::vector<AppCollection> all = collections(database);
      const auto found = std::ranges::find(all, collection, &AppCollection::id);
      if (found != all.end()) read.collection = static_cast<std::size_t>(found - all.begin());
      return read;
    };
    asked = co_await files->world_.library.read(everything);
  } catch (const std::exception& error) {
    why = QString::fromUtf8(error.what());
  }
  if (!files || files->generation_ != generation) co_return;
  if (!why.isEmpty()) co_return files->snackbar_.say(tr("Nothing was exported. %1").arg(why));
  files->showExport(std::move(asked), format);
}

void LibraryFiles::showExport(Asked asked, ExportFormat format) {
  auto* sheet =
      new ExportLibraryDialog(std::make_shared<const LibraryExport>(std::move(asked.library)),
                              format, asked.collection, world_, &window_);
  connect(sheet, &ExportLibraryDialog::exported, this,
          [this](const std::filesystem::path& file, const QString& said) {
            snackbar_.offer(said, tr("Show in Files"),
                            [&prompts = world_.prompts, file] { prompts.showInFiles(file); });
          });
  show(*sheet);
}

}  // namespace quillet
