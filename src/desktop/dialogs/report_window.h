// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <filesystem>

#include "desktop/dialogs/report_choices.h"
#include "desktop/dialogs/report_source.h"
#include "system/locale_formats.h"

class QHBoxLayout;
class QPushButton;

namespace quillet {

class LinkButton;
class ListStrip;
class PageText;
class ReportPreview;

/// Everything known about an app as a document: how it will look beside what is wanted of it. It
/// can be copied, saved and printed, and grows while the store answers.
class ReportWindow : public QDialog {
  Q_OBJECT

 public:
  ReportWindow(const ViewWorld& world, QWidget* parent);

  void show(const AppKey& app);
  using QDialog::show;
  /// Asks for a printer once the store has answered, or did not do so for long.
  void printWhenKnown();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  static Task<> write(QPointer<ReportWindow> window, std::filesystem::path file, ReportForm form,
                      AppReport report);

  void lay();
  [[nodiscard]] QHBoxLayout* makeFoot();
  void takeWish();
  void refresh();
  void showNothing();
  void showRemark(const AppReport& report);
  void say(const QString& text);
  [[nodiscard]] QFont paperFont() const;
  [[nodiscard]] std::optional<AppReport> report() const;
  void copy();
  void save();
  void print();

  ViewWorld world_;
  LocaleFormats formats_;
  ReportSource source_;
  QTimer change_;  ///< several changes of one moment are one
  AppKey app_;
  ReportChoices* choices_;
  ListStrip* strip_;
  ReportPreview* preview_;
  PageText* nothing_;  ///< in the preview's place
  PageText* remark_;
  LinkButton* stop_;    ///< ends the reading of reviews
  LinkButton* reveal_;  ///< shows the file that was saved
  QPushButton* copy_;
  QPushButton* print_;
  QPushButton* save_;
  bool isToPrint_ = false;
  std::filesystem::path saved_;  ///< empty unless the remark is about it
  QString said_;                 ///< what was done last, until something else is wanted
};

}  // namespace quillet
