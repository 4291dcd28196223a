// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/diagnostics_window.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {

constexpr QSize kUsualSize(640, 560);
constexpr QSize kLeastSize(480, 360);
constexpr double kMostGrowth = 1.4;
constexpr int kTextPixels = 12;

}  // namespace

DiagnosticsWindow::DiagnosticsWindow(const ViewWorld& world, DiagnosticSources sources,
                                     QWidget* parent)
    : QDialog(parent),
      world_(world),
      sources_(std::move(sources)),
      text_(new QPlainTextEdit),
      mentions_(new QCheckBox(tr("With the apps and failures that the log names"))),
      copy_(new DialogButton(tr("Copy"), ButtonKind::primary)) {
  setWindowTitle(tr("Diagnostics"));
  setAccessibleName(windowTitle());
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(kLeastSize);
  lay();
  resize(kUsualSize * std::min(lookOf(*this).growth(), kMostGrowth));
  connect(mentions_, &QAbstractButton::toggled, this, &DiagnosticsWindow::look);
  connect(copy_, &QAbstractButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(text_->toPlainText()); });
  look();
  copy_->setFocus();
}

void DiagnosticsWindow::lay() {
  constexpr int kSide = 24;
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPixelSize(static_cast<int>(kTextPixels * lookOf(*this).growth()));
  text_->setFont(fixed);
  text_->setFrameShape(QFrame::NoFrame);
  text_->setReadOnly(true);
  text_->setTabChangesFocus(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->setAccessibleName(tr("What Quillet knows of itself and of this machine"));
  copy_->setDefault(true);
  auto* refresh = new DialogButton(tr("Refresh"));
  connect(refresh, &QAbstractButton::clicked, this, &DiagnosticsWindow::look);
  auto* close = new DialogButton(tr("Close"));
  connect(close, &QAbstractButton::clicked, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kSide, 20, kSide, 20);
  column->setSpacing(8);
  column->addWidget(text_, 1);
  column->addWidget(mentions_);
  column->addSpacing(8);
  column->addLayout(buttonRow({refresh}, {close, copy_}));
}

void DiagnosticsWindow::look() { detach(read(this, ++generation_), "Diagnostics"); }

Task<> DiagnosticsWindow::read(QPointer<DiagnosticsWindow> window, int generation) {
  const auto mentions = window->mentions_->isChecked() ? AppMentions::asLogged : AppMentions::none;
  // Nothing is copied that is not what the tick says.
  window->copy_->setEnabled(false);
  const QString text = co_await diagnosticsText(window->world_, window->sources_, mentions);
  if (window) window->take(text, generation);
}

void DiagnosticsWindow::take(const QString& text, int generation) {
  if (generation != generation_) return;
  const int at = text_->verticalScrollBar()->value();
  text_->setPlainText(text);
  text_->verticalScrollBar()->setValue(at);
  const bool hadFocus = focusWidget() == copy_ || focusWidget() == nullptr;
  copy_->setEnabled(true);
  if (hadFocus) copy_->setFocus();
}

void DiagnosticsWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), lookOf(*this)[Token::base]);
}

}  // namespace quillet
