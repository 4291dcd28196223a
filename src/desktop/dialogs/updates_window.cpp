// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/updates_window.h"

#include <QAccessible>
#include <QDate>
#include <QLocale>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/dialog_button.h"
#include "desktop/look/framed.h"
#include "desktop/look/look.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kWidth = 560;
constexpr int kNotesHeight = 220;
constexpr double kNotesInset = 8;
constexpr double kMostGrowth = 1.4;

QString textOf(const std::string& text) { return QString::fromStdString(text); }

/// "Quillet 1.3, of 23 November 2026, is newer than this one."
QString newerText(const NewerRelease& newer) {
  const QString version = textOf(newer.release.version);
  const QDate day = QDate::fromString(textOf(newer.release.day), Qt::ISODate);
  QString text = day.isValid() ? UpdatesWindow::tr("Quillet %1 is there since %2.")
                                     .arg(version, QLocale().toString(day, QLocale::LongFormat))
                               : UpdatesWindow::tr("Quillet %1 is there.").arg(version);
  if (newer.isSkipped) text += u' ' + UpdatesWindow::tr("You skip this version.");
  return text;
}

struct SentenceOf {
  QString operator()(const NoReleaseList& /*state*/) const {
    return UpdatesWindow::tr("Your system's package manager updates Quillet.");
  }
  QString operator()(const NotLookedForUpdates& /*state*/) const {
    return UpdatesWindow::tr("Nobody has looked for a newer release yet.");
  }
  QString operator()(const LookingForUpdates& /*state*/) const {
    return UpdatesWindow::tr("Looking for a newer release…");
  }
  QString operator()(const NoNewerRelease& /*state*/) const {
    return UpdatesWindow::tr("This is the newest release.");
  }
  QString operator()(const NewerRelease& state) const { return newerText(state); }
  QString operator()(const UpdateLookFailed& state) const { return textOf(state.why); }
};

}  // namespace

UpdatesWindow::UpdatesWindow(Updates& updates, Prompts& prompts, QWidget* parent)
    : QDialog(parent),
      updates_(updates),
      prompts_(prompts),
      state_(new PageText({.type = kBodyType})),
      version_(new PageText({.type = kFactType, .ink = Token::secondary})),
      notes_(new QPlainTextEdit),
      skip_(new DialogButton),
      look_(new DialogButton(tr("Check Now"))),
      open_(new DialogButton(tr("Open Page"), ButtonKind::primary)) {
  setWindowTitle(tr("Updates"));
  setAccessibleName(windowTitle());
  setAttribute(Qt::WA_DeleteOnClose);
  setFixedWidth(static_cast<int>(kWidth * std::min(lookOf(*this).growth(), kMostGrowth)));
  lay();
  connect(open_, &QAbstractButton::clicked, this, &UpdatesWindow::openPage);
  connect(skip_, &QAbstractButton::clicked, this, &UpdatesWindow::turnSkip);
  connect(look_, &QAbstractButton::clicked, &updates_, &Updates::look);
  connect(&updates_, &Updates::changed, this, &UpdatesWindow::follow);
  follow();
}

void UpdatesWindow::lay() {
  constexpr int kSide = 24;
  notes_->setReadOnly(true);
  notes_->document()->setDocumentMargin(kNotesInset);
  notes_->setTabChangesFocus(true);
  notes_->setAccessibleName(tr("What is new"));
  notes_->setFixedHeight(static_cast<int>(kNotesHeight * lookOf(*this).growth()));
  auto* close = new DialogButton(tr("Close"));
  connect(close, &QAbstractButton::clicked, this, &QDialog::reject);
  auto* title = new PageText({.type = kSectionType.weighing(600)});
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kSide, 20, kSide, 20);
  column->setSpacing(8);
  column->addWidget(title);
  title->show(windowTitle());
  column->addWidget(state_);
  column->addWidget(version_);
  version_->show(tr("This is Quillet %1.").arg(textOf(updates_.version())));
  column->addSpacing(4);
  framedNotes_ = new Framed(notes_);
  column->addWidget(framedNotes_);
  column->addSpacing(8);
  column->addLayout(buttonRow({skip_}, {close, look_, open_}));
}

void UpdatesWindow::follow() {
  const UpdateState& state = updates_.state();
  const auto* newer = std::get_if<NewerRelease>(&state);
  const QString sentence = std::visit(SentenceOf(), state);
  const bool isNews = isVisible() && sentence != state_->text();
  state_->show(sentence);
  const QString notes = newer == nullptr ? QString() : textOf(newer->release.notes);
  framedNotes_->setVisible(!notes.isEmpty());
  if (notes != notes_->toPlainText()) notes_->setPlainText(notes);
  open_->setVisible(newer != nullptr);
  open_->setDefault(newer != nullptr);
  skip_->setVisible(newer != nullptr);
  skip_->setText(newer != nullptr && newer->isSkipped ? tr("No Longer Skip")
                                                      : tr("Skip This Version"));
  look_->setVisible(!std::holds_alternative<NoReleaseList>(state));
  look_->setEnabled(!std::holds_alternative<LookingForUpdates>(state));
  adjustSize();
  if (!isNews) return;
  QAccessibleEvent event(state_, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void UpdatesWindow::openPage() {
  if (const auto* newer = std::get_if<NewerRelease>(&updates_.state()))
    prompts_.openLink(newer->release.page);
}

void UpdatesWindow::turnSkip() {
  const auto* newer = std::get_if<NewerRelease>(&updates_.state());
  if (newer == nullptr) return;
  newer->isSkipped ? updates_.takeBackSkip() : updates_.skip();
}

void UpdatesWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), lookOf(*this)[Token::base]);
}

}  // namespace quillet
