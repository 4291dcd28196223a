// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/desktop_prompts.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QHeaderView>
#include <QListView>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>
#include <QTreeView>
#include <QUrl>
#include <memory>
#include <utility>

#include "base/urls.h"

namespace quillet {

namespace {

QString textOf(const std::filesystem::path& path) { return QFile::decodeName(path.c_str()); }

QString endingOf(const FileQuestion& question) {
  return textOf(question.suggested.extension()).mid(1);
}

/// "JSON (*.json)"
QString filterOf(const FileQuestion& question) {
  const QString ending = endingOf(question);
  return QStringLiteral("%1 (*.%2)").arg(ending.toUpper(), ending);
}

/// Kinds by ending: Qt would read what the desktop knows of every kind of file.
class FileKinds : public QFileIconProvider {
 public:
  QString type(const QFileInfo& file) const override {
    return file.isDir() ? QFileIconProvider::type(file) : file.suffix().toUpper();
  }
};

/// Where the desktop has a dialog of its own, these are not there.
void arrange(QFileDialog& dialog) {
  if (auto* places = dialog.findChild<QListView*>(QStringLiteral("sidebar"))) {
    const int size = places->style()->pixelMetric(QStyle::PM_SmallIconSize);
    places->setIconSize({size, size});
  }
  if (auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
    QHeaderView& header = *files->header();
    header.setStretchLastSection(false);
    header.setResizeContentsPrecision(0);  // of the rows that are seen
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
  }
}

/// That is there: Qt would take the last part of another for the name of a file.
std::filesystem::path nearestFolder(std::filesystem::path folder) {
  std::error_code unknown;
  while (folder.has_relative_path() && !is_directory(folder, unknown))
    folder = folder.parent_path();
  return folder;
}

/// Before the window that the user is in.
QFileDialog& makeDialog(const FileQuestion& question, const std::filesystem::path& folder) {
  static FileKinds kinds;
  auto* dialog =
      new QFileDialog(QApplication::activeWindow(), question.title, textOf(nearestFolder(folder)));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setIconProvider(&kinds);
  arrange(*dialog);
  return *dialog;
}

/// The event loop goes on: nothing waits inside a dialog, and it is shown in an event of its own.
void ask(QFileDialog& dialog, const QObject* context, FileAnswer take) {
  QObject::connect(&dialog, &QFileDialog::fileSelected, context,
                   [take = std::move(take)](const QString& chosen) {
                     take(std::filesystem::path(QFile::encodeName(chosen).toStdString()));
                   });
  QTimer::singleShot(0, &dialog, [&dialog] { dialog.open(); });
}

class DesktopPrompts final : public Prompts {
 public:
  void openLink(const std::string& address) override {
    if (isWebAddress(address)) QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
  }

  void showInFiles(const std::filesystem::path& file) override {
    QDesktopServices::openUrl(QUrl::fromLocalFile(textOf(file.parent_path())));
  }

  void chooseSaveFile(const FileQuestion& question, const QObject* context,
                      FileAnswer take) override {
    QFileDialog& dialog = makeDialog(question, question.suggested.parent_path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilter(filterOf(question));
    dialog.setDefaultSuffix(endingOf(question));
    dialog.selectFile(textOf(question.suggested.filename()));
    ask(dialog, context, std::move(take));
  }

  void chooseFile(const FileQuestion& question, const QObject* context, FileAnswer take) override {
    QFileDialog& dialog = makeDialog(question, question.suggested.parent_path());
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(filterOf(question));
    ask(dialog, context, std::move(take));
  }

  void chooseFolder(const FileQuestion& question, const QObject* context,
                    FileAnswer take) override {
    QFileDialog& dialog = makeDialog(question, question.suggested);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    ask(dialog, context, std::move(take));
  }

  void choosePrinter(const QString& title, const QObject* context, PrintAnswer take) override {
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(title);
    auto* dialog = new QPrintDialog(printer.get(), QApplication::activeWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    QObject::connect(dialog, &QDialog::accepted, context,
                     [printer, take = std::move(take)] { take(*printer); });
    // The dialog reads the printer until it is gone.
    QObject::connect(dialog, &QObject::destroyed, dialog, [printer] {});
    dialog->open();
  }
};

}  // namespace

Prompts& desktopPrompts() {
  static DesktopPrompts prompts;
  return prompts;
}

}  // namespace quillet
