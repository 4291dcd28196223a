// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/about_window.h"

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/dialogs/used_libraries.h"
#include "desktop/frame/installed_texts.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/button_look.h"
#include "desktop/look/framed.h"

namespace quillet {

namespace {

QLabel* paragraph(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignHCenter);
  return label;
}

/// What this and what it is built with may be used for.
QString noticesText() {
  QStringList lines;
  for (const UsedLibrary& each : usedLibraries())
    lines << QStringLiteral("%1 %2").arg(each.name, each.version).trimmed() +
                 QStringLiteral(" · ") + each.licence;
  return AboutWindow::tr("Built with") + QLatin1Char('\n') + lines.join(QLatin1Char('\n')) +
         QStringLiteral("\n\nQuillet\n") + QString::fromUtf8(kLicenceText).trimmed();
}

QPlainTextEdit* makeNotices() {
  constexpr int kHeight = 160;
  constexpr double kInset = 12;
  auto* notices = new QPlainTextEdit(noticesText());
  notices->setAccessibleName(AboutWindow::tr("Libraries and licences"));
  notices->document()->setDocumentMargin(kInset);
  notices->setReadOnly(true);
  notices->setTabChangesFocus(true);
  notices->setFixedHeight(kHeight);
  return notices;
}

}  // namespace

AboutWindow::AboutWindow(QWidget* parent) : QDialog(parent) {
  constexpr int kWidth = 400;
  constexpr int kIcon = 96;
  setWindowTitle(tr("About Quillet"));
  setFixedWidth(kWidth);
  auto* icon = new QLabel;
  icon->setPixmap(QApplication::windowIcon().pixmap(QSize(kIcon, kIcon), devicePixelRatioF()));
  icon->setAlignment(Qt::AlignHCenter);
  auto* name = new TextLabel(kTitleType, Token::text);
  name->setText(QStringLiteral("Quillet"));
  auto* version = new TextLabel(kFactType, Token::tertiary);
  version->setText(tr("Version %1 (build %2)")
                       .arg(QStringLiteral(QUILLET_VERSION), QStringLiteral(QUILLET_BUILD_NUMBER)));
  auto* close = new QPushButton(tr("Close"));
  setButtonKind(*close, ButtonKind::primary);
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 24, 24, 20);
  layout->setSpacing(8);
  layout->addWidget(icon);
  layout->addWidget(name, 0, Qt::AlignHCenter);
  layout->addWidget(version, 0, Qt::AlignHCenter);
  layout->addWidget(
      paragraph(tr("A companion to the App Store: what apps cost, what they cost "
                   "before, and what they will cost a year.")));
  layout->addWidget(
      paragraph(tr("Free software under the MIT licence. It sends nothing about you "
                   "to anybody.")));
  layout->addSpacing(8);
  layout->addWidget(new Framed(makeNotices()));
  layout->addSpacing(4);
  layout->addWidget(close, 0, Qt::AlignHCenter);
  close->setFocus();
}

}  // namespace quillet
