// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/skill_window.h"

#include <QAccessible>
#include <QFontDatabase>
#include <QListWidget>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

#include "base/errors.h"
#include "desktop/dialogs/diagnostics_text.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr QSize kUsualSize(640, 560);
constexpr QSize kLeastSize(520, 420);
constexpr double kMostGrowth = 1.4;
constexpr int kListHeight = 112;
constexpr int kTextPixels = 12;

/// A row: which agent, where, and how it stands there.
class AgentDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& /*index*/) const override {
    return {0, static_cast<int>(kRow * lookOf(*option.widget).growth())};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    Look& look = lookOf(*option.widget);
    const QRectF row(option.rect);
    const bool hasRing = option.state.testFlag(QStyle::State_HasFocus) &&
                         option.widget->window()->testAttribute(Qt::WA_KeyboardFocusChange);
    if (option.state.testFlag(QStyle::State_Selected))
      paintBox(*painter, row, kCorner, look[Token::selection]);
    if (hasRing) paintBox(*painter, row, kCorner, Qt::transparent, {look[Token::accentText], 2});
    const bool isMirrored = option.direction == Qt::RightToLeft;
    look.text.drawElided(
        *painter,
        {row.adjusted(kInset, 0, -kInset, 0), isMirrored ? TextAnchor::right : TextAnchor::left},
        index.data().toString(), kBodyType, look[Token::text]);
  }

 private:
  static constexpr int kRow = 32;
  static constexpr int kInset = 12;
  static constexpr double kCorner = 8;
};

QString stateText(SkillState state) {
  switch (state) {
    case SkillState::absent: return SkillWindow::tr("not installed");
    case SkillState::current: return SkillWindow::tr("installed");
    case SkillState::outdated: return SkillWindow::tr("another version");
    case SkillState::newer: return SkillWindow::tr("a newer version");
    case SkillState::changed: break;
  }
  return SkillWindow::tr("changed, or not from Quillet");
}

QString installText(SkillState state) {
  if (state == SkillState::outdated) return SkillWindow::tr("Update");
  const bool isReplaced = state == SkillState::changed || state == SkillState::newer;
  return isReplaced ? SkillWindow::tr("Replace") : SkillWindow::tr("Install");
}

bool differs(const SkillTarget& target) {
  return target.state != SkillState::absent && target.state != SkillState::current;
}

QString whatText(const SkillTarget* target, const std::filesystem::path& home) {
  if (target == nullptr) return SkillWindow::tr("What is installed:");
  if (differs(*target))
    return SkillWindow::tr("What changes in %1 (- goes, + comes):")
        .arg(placeText(target->file, home));
  return SkillWindow::tr("What is in %1 then:").arg(placeText(target->file, home));
}

}  // namespace

SkillWindow::SkillWindow(const ViewWorld& world, std::filesystem::path home, std::string skill,
                         QWidget* parent)
    : QDialog(parent),
      world_(world),
      home_(std::move(home)),
      skill_(std::move(skill)),
      list_(new QListWidget),
      nothing_(new PageText({.type = kBodyType, .ink = Token::secondary})),
      what_(new PageText({.type = kFactType, .ink = Token::secondary})),
      text_(new QPlainTextEdit),
      failure_(new PageText({.type = kFactType, .ink = Token::up})),
      install_(new DialogButton(tr("Install"), ButtonKind::primary)),
      remove_(new DialogButton(tr("Remove"))) {
  setWindowTitle(tr("Agent Skill"));
  setAccessibleName(windowTitle());
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(kLeastSize);
  lay();
  resize(kUsualSize * std::min(lookOf(*this).growth(), kMostGrowth));
  connect(list_, &QListWidget::currentRowChanged, this, &SkillWindow::showChosen);
  connect(install_, &QAbstractButton::clicked, this,
          [this] { attempt([this](const SkillTarget& target) { writeSkill(target, skill_); }); });
  connect(remove_, &QAbstractButton::clicked, this, [this] { attempt(removeSkill); });
  look();
  list_->setFocus();
}

void SkillWindow::lay() {
  constexpr int kSide = 24;
  list_->setAccessibleName(tr("Agents on this machine"));
  list_->setItemDelegate(new AgentDelegate(list_));
  list_->setFrameShape(QFrame::NoFrame);
  text_->setFrameShape(QFrame::NoFrame);
  list_->setFixedHeight(static_cast<int>(kListHeight * lookOf(*this).growth()));
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPixelSize(static_cast<int>(kTextPixels * lookOf(*this).growth()));
  text_->setFont(fixed);
  text_->setReadOnly(true);
  text_->setTabChangesFocus(true);
  text_->setAccessibleName(tr("The skill"));
  install_->setDefault(true);
  auto* folder = new DialogButton(tr("Choose Folder…"));
  connect(folder, &QAbstractButton::clicked, this, &SkillWindow::chooseFolder);
  auto* close = new DialogButton(tr("Close"));
  connect(close, &QAbstractButton::clicked, this, &QDialog::reject);
  auto* about = new PageText({.type = kBodyType});
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kSide, 20, kSide, 20);
  column->setSpacing(8);
  column->addWidget(about);
  column->addWidget(list_);
  column->addWidget(nothing_);
  column->addWidget(what_);
  column->addWidget(text_, 1);
  column->addWidget(failure_);
  column->addSpacing(8);
  column->addLayout(buttonRow({folder, remove_}, {close, install_}));
  about->show(
      tr("A skill tells an AI agent which command of Quillet answers what. It is one file, "
         "in the folder where an agent looks for skills."));
}

void SkillWindow::look() {
  const SkillTarget* before = chosen();
  const auto folder = before == nullptr ? std::filesystem::path() : before->folder;
  targets_ = skillTargets(home_, skill_);
  for (const auto& each : added_) {
    const bool isListed = std::ranges::find(targets_, each, &SkillTarget::folder) != targets_.end();
    if (!isListed) targets_.push_back(skillIn(each, skill_));
  }
  const QSignalBlocker quiet(list_);
  list_->clear();
  for (const SkillTarget& each : targets_) {
    list_->addItem(tr("%1, %2: %3")
                       .arg(QString::fromStdString(each.agent), placeText(each.folder, home_),
                            stateText(each.state)));
    if (each.folder == folder) list_->setCurrentRow(list_->count() - 1);
  }
  if (list_->currentRow() < 0 && list_->count() > 0) list_->setCurrentRow(0);
  list_->setVisible(!targets_.empty());
  nothing_->show(targets_.empty()
                     ? tr("No agent's folder of skills was found on this machine. Choose one.")
                     : QString());
  showChosen();
}

void SkillWindow::choose(const std::filesystem::path& folder) {
  const auto target = std::ranges::find(targets_, folder, &SkillTarget::folder);
  list_->setCurrentRow(static_cast<int>(target - targets_.begin()));
}

const SkillTarget* SkillWindow::chosen() const {
  const int row = list_->currentRow();
  return row < 0 || row >= std::ssize(targets_) ? nullptr
                                                : &targets_[static_cast<std::size_t>(row)];
}

void SkillWindow::showChosen() {
  const SkillTarget* target = chosen();
  failure_->show({});  // of another one
  what_->show(whatText(target, home_));
  const bool isOther = target != nullptr && differs(*target);
  const std::string text = isOther ? differenceOf(target->kept, skill_) : skill_;
  text_->setPlainText(QString::fromStdString(text));
  const SkillState state = target == nullptr ? SkillState::absent : target->state;
  install_->setText(installText(state));
  install_->setEnabled(target != nullptr && state != SkillState::current);
  remove_->setEnabled(state != SkillState::absent && state != SkillState::changed);
}

void SkillWindow::chooseFolder() {
  world_.prompts.chooseFolder({tr("Folder of an Agent's Skills"), home_}, this,
                              [this](const std::filesystem::path& folder) {
                                added_.push_back(folder);
                                look();
                                choose(folder);
                              });
}

void SkillWindow::attempt(const std::function<void(const SkillTarget&)>& act) {
  const SkillTarget* target = chosen();
  if (target == nullptr) return;
  QString failure;
  try {
    act(*target);
  } catch (const FileError& error) {
    failure = QString::fromUtf8(error.what());
  }
  look();
  failure_->show(failure);
  if (failure.isEmpty()) return;
  QAccessibleEvent event(failure_, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void SkillWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::base]);
  const QRect text = text_->geometry();
  for (const int y : {text.top() - 1, text.bottom() + 1})
    PixelGrid(painter).horizontal(text.left(), text.right() + 1, y, look[Token::line]);
}

}  // namespace quillet
