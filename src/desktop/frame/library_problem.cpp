// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/library_problem.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/look/button_look.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

constexpr int kTextWidth = 460;
constexpr double kIcon = 48;
constexpr int kIconGap = 20;

QString adviceFor(DatabaseError::Kind kind) {
  switch (kind) {
    case DatabaseError::Kind::inUse:
      return LibraryProblem::tr("End the other one, then try again.");
    case DatabaseError::Kind::newer:
      return LibraryProblem::tr("Update Quillet, or start the newer one.");
    case DatabaseError::Kind::foreign:
      return LibraryProblem::tr("Move that file away, then try again for a library of its own.");
    case DatabaseError::Kind::failed: break;
  }
  return LibraryProblem::tr(
      "See that its folder can be read and written and its disk has room, or put a copy of the "
      "library in its place; then try again.");
}

QLabel* paragraph() {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  label->setFixedWidth(kTextWidth);
  return label;
}

/// A layout asks a label that wraps for its height before it knows its width.
void setParagraph(QLabel& label, const QString& text) {
  label.setText(text);
  label.setFixedHeight(label.heightForWidth(kTextWidth));
}

}  // namespace

LibraryProblem::LibraryProblem(QWidget* parent)
    : QWidget(parent),
      title_(new TextLabel(kBlockType, Token::text)),
      reason_(paragraph()),
      advice_(paragraph()),
      again_(new QPushButton(tr("Try Again"))),
      quit_(new QPushButton(tr("Quit Quillet"))) {
  setAccessibleName(tr("Library"));
  title_->setText(tr("The library could not be opened."));
  setButtonKind(*again_, ButtonKind::primary);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(again_);
  buttons->addWidget(quit_);
  buttons->addStretch();
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(8);
  layout->addStretch(2);
  layout->addSpacing(static_cast<int>(kIcon) + kIconGap);
  layout->addWidget(title_, 0, Qt::AlignHCenter);
  layout->addWidget(reason_, 0, Qt::AlignHCenter);
  layout->addWidget(advice_, 0, Qt::AlignHCenter);
  layout->addSpacing(12);
  layout->addLayout(buttons);
  layout->addStretch(3);
  connect(again_, &QPushButton::clicked, this, &LibraryProblem::triedAgain);
  connect(quit_, &QPushButton::clicked, this, &LibraryProblem::quits);
}

void LibraryProblem::setReason(const DatabaseError& reason, const std::filesystem::path& library) {
  setParagraph(*reason_, QString::fromUtf8(reason.what()));
  setParagraph(*advice_, adviceFor(reason.kind()) + u"\n\n"_s + tr("Nothing was changed in") +
                             u'\n' + QString::fromStdString(library.string()));
}

void LibraryProblem::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  look.icons.draw(painter, {(width() - kIcon) / 2, title_->y() - kIconGap - kIcon},
                  QStringLiteral("database"), kIcon, look[Token::edge]);
}

}  // namespace quillet
