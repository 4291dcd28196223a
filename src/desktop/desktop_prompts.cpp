// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/desktop_prompts.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
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

/// Before the window that the user is in. The event loop goes on: nothing waits inside a dialog.
void ask(QFileDialog& dialog, const QObject* context, FileAnswer take) {
  dialog.setAttribute(Qt::WA_DeleteOnClose);
  QObject::connect(&dialog, &QFileDialog::fileSelected, context,
                   [take = std::move(take)](const QString& chosen) {
                     take(std::filesystem::path(QFile::encodeName(chosen).toStdString()));
                   });
  dialog.open();
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
    auto* dialog = new QFileDialog(QApplication::activeWindow(), question.title,
                                   textOf(question.suggested.parent_path()));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setNameFilter(filterOf(question));
    dialog->setDefaultSuffix(endingOf(question));
    dialog->selectFile(textOf(question.suggested.filename()));
    ask(*dialog, context, std::move(take));
  }

  void chooseFile(const FileQuestion& question, const QObject* context, FileAnswer take) override {
    auto* dialog = new QFileDialog(QApplication::activeWindow(), question.title,
                                   textOf(question.suggested.parent_path()));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(filterOf(question));
    ask(*dialog, context, std::move(take));
  }

  void chooseFolder(const FileQuestion& question, const QObject* context,
                    FileAnswer take) override {
    auto* dialog =
        new QFileDialog(QApplication::activeWindow(), question.title, textOf(question.suggested));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    ask(*dialog, context, std::move(take));
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
