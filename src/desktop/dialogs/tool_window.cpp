// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/tool_window.h"

#include <QAccessible>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kWidth = 560;
constexpr double kMostGrowth = 1.4;

QString textOf(const std::filesystem::path& path) { return QFile::decodeName(path.c_str()); }

QString nameOf(ToolPart part) {
  switch (part) {
    case ToolPart::program: return ToolWindow::tr("The program");
    case ToolPart::manualPage: return ToolWindow::tr("Manual page");
    case ToolPart::bash: return ToolWindow::tr("Completions for bash");
    case ToolPart::zsh:
      return ToolWindow::tr("Completions for zsh, whose fpath has to name the folder");
    case ToolPart::fish: break;
  }
  return ToolWindow::tr("Completions for fish");
}

QString stateText(const ToolLink& link) {
  switch (link.state) {
    case LinkState::absent: return ToolWindow::tr("to be made");
    case LinkState::ours: return ToolWindow::tr("installed");
    case LinkState::other: break;
  }
  return ToolWindow::tr("something else is there, and stays");
}

/// "Installed by Quillet", "Points elsewhere" and what that means.
QString sentenceOf(const CommandTool& tool) {
  const QString found = tool.found ? textOf(*tool.found) : QString();
  const bool isLinked = !tool.links.empty() && tool.links.front().state == LinkState::ours;
  if (isLinked && tool.isFoundOurs)
    return ToolWindow::tr(
               "Installed by Quillet. The command “quillet” starts this program, "
               "version %1.")
        .arg(QStringLiteral(QUILLET_VERSION));
  if (tool.isFoundOurs)
    return ToolWindow::tr("Available in PATH: “quillet” is %1, version %2.")
        .arg(found, QStringLiteral(QUILLET_VERSION));
  if (tool.found)
    return ToolWindow::tr("Points elsewhere: “quillet” is %1, another program than this.")
        .arg(found);
  if (!tool.links.empty() && tool.links.front().state == LinkState::other)
    return ToolWindow::tr("Points elsewhere: %1 is not a link of this program.")
        .arg(textOf(tool.links.front().link));
  if (isLinked)
    return ToolWindow::tr(
               "Installed by Quillet, but not in PATH: a terminal does not look for "
               "commands in %1.")
        .arg(textOf(tool.folder));
  if (tool.isInFolder)
    return ToolWindow::tr("Not in PATH: this program lies in %1, where a terminal does not look.")
        .arg(textOf(tool.folder));
  if (tool.links.empty())
    return ToolWindow::tr("Not in PATH, and where this program lies is not known.");
  return ToolWindow::tr("Not in PATH. Installing makes these links, and nothing else:");
}

}  // namespace

ToolWindow::ToolWindow(ToolPlaces places, QWidget* parent)
    : QDialog(parent),
      places_(std::move(places)),
      state_(new PageText({.type = kBodyType})),
      links_(new QVBoxLayout),
      missing_(makeLine()),
      failures_(new PageText({.type = kFactType, .ink = Token::up})),
      install_(new DialogButton(tr("Install"), ButtonKind::primary)),
      remove_(new DialogButton(tr("Remove"))) {
  setWindowTitle(tr("Command-Line Tool"));
  setAccessibleName(windowTitle());
  setAttribute(Qt::WA_DeleteOnClose);
  setFixedWidth(static_cast<int>(kWidth * std::min(lookOf(*this).growth(), kMostGrowth)));
  lay();
  connect(install_, &QAbstractButton::clicked, this, [this] { tell(installTool(tool_)); });
  connect(remove_, &QAbstractButton::clicked, this, [this] { tell(removeTool(tool_)); });
  failures_->show({});
  look();
  install_->setFocus();
}

void ToolWindow::lay() {
  constexpr int kSide = 24;
  install_->setDefault(true);
  auto* close = new DialogButton(tr("Close"));
  connect(close, &QAbstractButton::clicked, this, &QDialog::reject);
  auto* title = new PageText({.type = kSectionType.weighing(600)});
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kSide, 20, kSide, 20);
  column->setSpacing(8);
  column->addWidget(title);
  title->show(windowTitle());
  column->addWidget(state_);
  links_->setSpacing(2);
  column->addSpacing(4);
  column->addLayout(links_);
  column->addSpacing(4);
  column->addWidget(missing_);
  column->addWidget(failures_);
  column->addSpacing(8);
  column->addLayout(buttonRow({remove_}, {close, install_}));
}

/// Nothing edits what a shell reads at its start but its user.
QWidget* ToolWindow::makeLine() {
  auto* box = new QWidget;
  auto* label = new QLabel(tr("Add this line to what your shell reads at its start"));
  line_ = new QLineEdit;
  line_->setReadOnly(true);
  line_->setText(QStringLiteral("export PATH=\"$HOME/.local/bin:$PATH\""));
  label->setBuddy(line_);
  line_->setAccessibleName(label->text());
  auto* copy = new DialogButton(tr("Copy"));
  connect(copy, &QAbstractButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(line_->text()); });
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(line_, 1);
  row->addWidget(copy);
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins({});
  column->setSpacing(4);
  column->addWidget(label);
  column->addLayout(row);
  return box;
}

void ToolWindow::look() {
  tool_ = lookAtTool(places_);
  state_->show(sentenceOf(tool_));
  showLinks();
  const auto has = [this](LinkState state) {
    return std::ranges::find(tool_.links, state, &ToolLink::state) != tool_.links.end();
  };
  const bool isWanted = !tool_.links.empty() || (tool_.isInFolder && !tool_.isFoundOurs);
  missing_->setVisible(isWanted && !tool_.isFolderSearched);
  install_->setEnabled(has(LinkState::absent));
  remove_->setEnabled(has(LinkState::ours));
  adjustSize();
}

void ToolWindow::showLinks() {
  while (QLayoutItem* item = links_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  for (const ToolLink& link : tool_.links) {
    // In their place before they are shown: alone they were windows.
    auto* name = new PageText({.type = kSmallControlType});
    links_->addWidget(name);
    name->show(QStringLiteral("%1: %2").arg(nameOf(link.part), stateText(link)));
    auto* path = new PageText({.type = kFactType, .ink = Token::secondary, .use = TextUse::copy});
    links_->addWidget(path);
    path->show(QStringLiteral("%1 → %2").arg(textOf(link.link), textOf(link.target)));
  }
}

void ToolWindow::tell(const std::vector<std::string>& failures) {
  QStringList lines;
  for (const std::string& each : failures) lines << QString::fromStdString(each);
  failures_->show(lines.join(u'\n'));
  look();
  QAccessibleEvent event(failures.empty() ? state_ : failures_, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void ToolWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), lookOf(*this)[Token::base]);
}

}  // namespace quillet
