// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/toolbar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>

#include "desktop/frame/action_set.h"
#include "desktop/lists/section.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/link_button.h"

namespace quillet {

namespace {

constexpr int kHeight = 52;
constexpr int kInset = 12;
constexpr int kGap = 8;
constexpr int kLeastTitle = 120;  // before it is cut the field gives way

}  // namespace

Toolbar::Toolbar(ActionSet& actions, SortMenu& sorts)
    : sorts_(sorts),
      title_(new TextLabel(kSectionType, Token::text)),
      listTitle_(new TextLabel(kControlType, Token::secondary)),
      position_(new TextLabel(kFactType.tabular(), Token::tertiary)),
      markAll_(new LinkButton(actions["mark-all-read"].text(), kControlType)),
      collect_(new QPushButton),
      collectText_(actions["new-collection"].text()),
      sort_(new SortButton(sorts)),
      find_(new FindField(actions["find"].shortcut().toString(QKeySequence::NativeText))),
      refresh_(new RefreshButton) {
  setAccessibleName(tr("Toolbar"));
  setFixedHeight(kHeight);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(kInset, 0, kInset, 0);
  layout->setSpacing(kGap);
  layout->addWidget(button(actions, "back", "chevron-left"));
  layout->addWidget(button(actions, "forward", "chevron-right"));
  layout->addSpacing(4);
  layout->addWidget(title_);
  layout->addWidget(listTitle_);
  layout->addWidget(position_);
  layout->addStretch();
  layout->addWidget(markAll_);
  markAll_->setToolTip(actions["mark-all-read"].toolTip());
  connect(markAll_, &LinkButton::clicked, &actions["mark-all-read"], &QAction::trigger);
  layout->addWidget(sort_);
  setIconName(*collect_, QStringLiteral("plus-lg"));
  collect_->setAccessibleName(collectText_);
  collect_->setToolTip(actions["new-collection"].toolTip());
  connect(collect_, &QPushButton::clicked, &actions["new-collection"], &QAction::trigger);
  layout->addWidget(collect_);
  layout->addWidget(find_);
  previous_ = button(actions, "previous-app", "chevron-up");
  next_ = button(actions, "next-app", "chevron-down");
  layout->addWidget(previous_);
  layout->addWidget(next_);
  refresh_->setDefaultAction(&actions["refresh"]);
  layout->addWidget(refresh_);
  beside_ = button(actions, "page-beside", "layout-sidebar-reverse");
  layout->addWidget(beside_);
}

QToolButton* Toolbar::button(ActionSet& actions, const char* id, const char* icon) {
  auto* button = new QToolButton;
  button->setDefaultAction(&actions[id]);
  setIconName(*button, QString::fromLatin1(icon));
  return button;
}

void Toolbar::setState(const ToolbarState& state) {
  title_->setText(state.title);
  title_->setMinimumWidth(std::min(title_->sizeHint().width(), kLeastTitle));
  showTools(state.isPageAlone ? nullptr : state.tools, state.toolsPlace);
  title_->setVisible(!state.isPageAlone && tools_ == nullptr);
  listTitle_->setText(state.title);
  listTitle_->setVisible(state.isPageAlone);
  position_->setText(state.position);
  position_->setVisible(!state.position.isEmpty());
  followSorts();
  if (state.isPageAlone) sort_->hide();
  markAll_->setVisible(state.canMarkAll && !state.isPageAlone);
  collect_->setVisible(state.canCollect && !state.isPageAlone);
  find_->setVisible(!state.isPageAlone && tools_ == nullptr);
  find_->setPrompt(state.findText);
  find_->setShownText(state.text);
  previous_->setVisible(state.isPageAlone);
  next_->setVisible(state.isPageAlone);
  refresh_->setVisible(state.canRefresh);
  refresh_->setBusy(state.isBusy);
  beside_->setVisible(state.canStandBeside);
  fit();
}

/// Where the title would be cut, the icon alone has to do.
void Toolbar::fit() {
  if (collect_->isHidden()) return;
  collect_->setText(collectText_);
  if (layout()->sizeHint().width() > width()) collect_->setText({});
}

void Toolbar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fit();
}

void Toolbar::addTools(Section& section) {
  QWidget* const tools = section.tools();
  if (tools == nullptr) return;
  auto& layout = *static_cast<QHBoxLayout*>(this->layout());
  if (section.toolsPlace() == ToolsPlace::beside) {
    layout.insertWidget(layout.indexOf(markAll_), tools);
  } else {
    layout.insertWidget(layout.indexOf(title_), tools, 1);
  }
  tools->hide();
  allTools_.push_back(tools);
  auto* sort = new SortButton(sorts_, this);
  if (section.placeSort(sort)) {
    sortsInTools_.push_back(sort);
  } else {
    delete sort;
  }
}

/// One of them is seen: among the tools, or beside them.
void Toolbar::followSorts() {
  sort_->follow();
  for (SortButton* sort : sortsInTools_) {
    sort->follow();
    if (sort->parentWidget() == tools_) sort_->hide();
  }
}

/// The new ones first: what hides while it has the focus gives it to whatever comes next.
void Toolbar::showTools(QWidget* shown, ToolsPlace place) {
  tools_ = place == ToolsPlace::instead ? shown : nullptr;
  if (shown != nullptr) shown->show();
  for (QWidget* tools : allTools_) {
    if (tools != shown) tools->hide();
  }
}

void Toolbar::takeFocus() {
  if (tools_ != nullptr) return tools_->setFocus(Qt::ShortcutFocusReason);
  QWidget* first = find_;
  if (!find_->isVisible()) first = next_->isEnabled() ? next_ : previous_;
  first->setFocus(Qt::ShortcutFocusReason);
}

void Toolbar::goToField() {
  takeFocus();
  if (auto* field = qobject_cast<QLineEdit*>(window()->focusWidget())) field->selectAll();
}

std::vector<QWidget*> Toolbar::parts() const {
  std::vector<QWidget*> parts;
  for (int i = 0; i < layout()->count(); ++i) {
    if (QWidget* part = layout()->itemAt(i)->widget()) parts.push_back(part);
  }
  return parts;
}

void Toolbar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  PixelGrid(painter).horizontal(0, width(), height() - 1, lookOf(*this)[Token::line]);
}

}  // namespace quillet
