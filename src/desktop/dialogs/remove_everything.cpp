// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/remove_everything.h"

#include <QAccessible>
#include <QFile>
#include <QJsonArray>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/errors.h"
#include "desktop/dialogs/library_file.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/look/widgets.h"
#include "desktop/models/recent_searches.h"
#include "desktop/page/page_text.h"
#include "library/cached_apps.h"
#include "library/library_export_json.h"
#include "net/worker.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

constexpr int kWidth = 440;

QString counted(std::int64_t number, const char* one, const char* many) {
  const QString text = QCoreApplication::translate("RemoveEverything", number == 1 ? one : many);
  return QString::number(number) + u' ' + text;
}

/// A line for each list that holds something.
QString countLines(const ListCounts& counts) {
#define TEXT(text) QT_TRANSLATE_NOOP("RemoveEverything", text)
  const std::pair<std::int64_t, QString> lines[] = {
      {counts.watched, counted(counts.watched, TEXT("watched app"), TEXT("watched apps"))},
      {counts.owned, counted(counts.owned, TEXT("app in My Apps"), TEXT("apps in My Apps"))},
      {counts.collections,
       counted(counts.collections, TEXT("collection with "), TEXT("collections with ")) +
           counted(counts.entries, TEXT("app"), TEXT("apps"))},
      {counts.savedSearches,
       counted(counts.savedSearches, TEXT("saved search"), TEXT("saved searches"))},
      {counts.alerts, counted(counts.alerts, TEXT("alert"), TEXT("alerts"))},
      {counts.viewed,
       counted(counts.viewed, TEXT("app in the history"), TEXT("apps in the history"))},
  };
#undef TEXT
  QStringList shown;
  for (const auto& [number, text] : lines) {
    if (number > 0) shown.append(u"• "_s + text);
  }
  return shown.join(u'\n');
}

PageText* addParagraph(QVBoxLayout& column, const QString& text, const TextLook& look) {
  auto* made = new PageText(look);
  column.addWidget(made);
  made->show(text);
  return made;
}

EditStep removingAll() {
  return {[](WriteTransaction& transaction) {
    removeEverything(transaction);
    forgetAllViews(transaction);
    return EditStep();
  }};
}

}  // namespace

RemoveEverythingDialog::RemoveEverythingDialog(const ViewWorld& world,
                                               const std::optional<ListCounts>& counts,
                                               QWidget* parent)
    : QDialog(parent), world_(world), said_(nullptr) {
  setWindowTitle(tr("Remove all library data?"));
  setAccessibleName(windowTitle());
  setAttribute(Qt::WA_DeleteOnClose);
  setFixedWidth(static_cast<int>(kWidth * lookOf(*this).growth()));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 20);
  column->setSpacing(8);
  addParagraph(*column, windowTitle(), {.type = kSectionType.weighing(600), .lineHeight = 24});
  const TextLook body{.type = kBodyType, .lineHeight = 20};
  addParagraph(*column, contentText(counts), body);
  addParagraph(*column,
               tr("Recorded prices, ranks and charts stay, and so do the settings. This cannot be "
                  "undone."),
               {.type = kBodyType, .ink = Token::secondary});
  said_ = addParagraph(*column, tr("An export keeps the watchlist and the collections in a file."),
                       {.type = kFactType, .ink = Token::secondary, .lineHeight = 17});
  auto* exports = new DialogButton(tr("Export First…"));
  auto* removes = new DialogButton(tr("Remove Everything"), ButtonKind::danger);
  for (QPushButton* button : {exports, removes}) button->setEnabled(counts.has_value());
  auto* cancels = new DialogButton(tr("Cancel"), ButtonKind::primary);
  cancels->setDefault(true);
  column->addSpacing(8);
  column->addLayout(buttonRow({exports}, {removes, cancels}));
  connect(exports, &QPushButton::clicked, this, &RemoveEverythingDialog::askForFile);
  connect(removes, &QPushButton::clicked, this, &RemoveEverythingDialog::removeAll);
  connect(cancels, &QPushButton::clicked, this, &QDialog::reject);
  cancels->setFocus();
}

/// Nobody is to agree to what they cannot see.
QString RemoveEverythingDialog::contentText(const std::optional<ListCounts>& counts) {
  if (!counts)
    return tr(
        "What your lists hold cannot be read now, so nothing can be removed. Try again later.");
  const QString lines = countLines(*counts);
  return lines.isEmpty() ? tr("Your lists hold nothing.") : lines;
}

void RemoveEverythingDialog::askForFile() {
  world_.prompts.chooseSaveFile(
      {tr("Export Library"), suggestedExport(world_, "Quillet Library", ExportFormat::json)}, this,
      [this](const std::filesystem::path& file) {
        rememberLibraryFolder(world_, file);
        detach(exportTo(this, file), "An export");
      });
}

Task<> RemoveEverythingDialog::exportTo(QPointer<RemoveEverythingDialog> dialog,
                                        std::filesystem::path file) {
  const QString name = QFile::decodeName(file.filename().c_str());
  QString text = tr("Exported to %1.").arg(name);
  try {
    const Instant now = dialog->world_.clock.now();
    LibraryExport document = co_await dialog->world_.library.read(exportLibrary, now);
    auto write = [file, document = std::move(document)] {
      replaceFile(file, libraryExportJson(document));
    };
    co_await onWorker(std::move(write));
  } catch (const std::exception& error) {
    text = tr("Nothing was exported. %1").arg(QString::fromUtf8(error.what()));
  }
  if (!dialog) co_return;
  dialog->said_->show(text);
  QAccessibleEvent event(dialog->said_, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void RemoveEverythingDialog::removeAll() {
  LibraryEdit edit{tr("Remove Everything"), tr("Removed all library data."),
                   tr("Nothing was removed."), removingAll()};
  edit.beside = [&state = world_.state] {
    state.setValue(QString::fromLatin1(kRecentSearchesKey), QJsonArray());
  };
  world_.edits.performForGood(std::move(edit));
  accept();
}

void RemoveEverythingDialog::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), lookOf(*this)[Token::base]);
}

Task<> askToRemoveEverything(ViewWorld world, QPointer<QWidget> parent) {
  std::optional<ListCounts> counts;
  try {
    counts = co_await world.library.read(listCounts);
  } catch (const DatabaseError&) {
    counts.reset();
  }
  if (!parent || parent->findChild<RemoveEverythingDialog*>() != nullptr) co_return;
  auto* dialog = new RemoveEverythingDialog(world, counts, parent);
  dialog->setModal(true);
  bringUp(*dialog);
}

}  // namespace quillet
