// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/focus_ring.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QFocusFrame>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QStyleOption>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A window that has the focus: two buttons, a field, a list.
class FocusRingTest : public testing::Test {
 protected:
  FocusRingTest() {
    auto* layout = new QVBoxLayout(window_.get());
    for (QWidget* each : std::initializer_list<QWidget*>{first_, second_, field_, list_}) {
      layout->addWidget(each);
    }
    window_->show();
    QApplication::setActiveWindow(window_.get());
    first_->setFocus();
  }
  void TearDown() override {
    if (window_) QTest::mouseClick(window_.get(), Qt::LeftButton);  // others begin without a ring
  }

  /// The widget that a ring is seen around.
  [[nodiscard]] const QWidget* ringed() const {
    const auto* frame = window_->findChild<QFocusFrame*>();
    return frame != nullptr && frame->isVisible() ? frame->widget() : nullptr;
  }

  static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }

  /// What a delegate or a tab is told.
  [[nodiscard]] static bool showsRingInside(const QWidget& widget) {
    QStyleOption option;
    option.initFrom(&widget);
    return option.state.testFlag(QStyle::State_KeyboardFocusChange);
  }

  std::unique_ptr<QWidget> window_ = std::make_unique<QWidget>();
  QPushButton* first_ = new QPushButton(u"First"_s);
  QPushButton* second_ = new QPushButton(u"Second"_s);
  QLineEdit* field_ = new QLineEdit();
  QListView* list_ = new QListView();
};

TEST_F(FocusRingTest, FollowsKeysAndGoesWithThePointer) {
  EXPECT_EQ(ringed(), nullptr);
  press(Qt::Key_Shift);
  EXPECT_EQ(ringed(), nullptr);
  press(Qt::Key_Tab);
  EXPECT_EQ(ringed(), second_);
  press(Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_EQ(ringed(), first_);
  QTest::mouseClick(second_, Qt::LeftButton);
  EXPECT_EQ(QApplication::focusWidget(), second_);
  EXPECT_EQ(ringed(), nullptr);
  press(Qt::Key_Space);
  EXPECT_EQ(ringed(), second_);
}

TEST_F(FocusRingTest, FollowsAShortcut) {
  const QShortcut shortcut(QKeySequence(u"Ctrl+B"_s), window_.get(),
                           [this] { second_->setFocus(); });
  press(Qt::Key_B, Qt::ControlModifier);
  EXPECT_EQ(ringed(), second_);
}

TEST_F(FocusRingTest, LeavesFieldsAndListsTheirOwn) {
  press(Qt::Key_Tab);
  press(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), field_);
  EXPECT_EQ(ringed(), nullptr);
  press(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), list_);
  EXPECT_EQ(ringed(), nullptr);
  EXPECT_TRUE(showsRingInside(*list_));
  QTest::mouseClick(list_->viewport(), Qt::LeftButton);
  EXPECT_FALSE(showsRingInside(*list_));
}

TEST_F(FocusRingTest, SurvivesTheWidgetAndTheWindowThatItWasIn) {
  press(Qt::Key_Tab);
  delete second_;
  EXPECT_TRUE(ringed() == nullptr || ringed() == QApplication::focusWidget());
  first_->setFocus();
  EXPECT_EQ(ringed(), first_);

  auto other = std::make_unique<QWidget>();
  auto* inside = new QPushButton(u"Inside"_s, other.get());
  other->show();
  QApplication::setActiveWindow(other.get());
  inside->setFocus();
  EXPECT_EQ(ringed(), nullptr);
  other.reset();
  QApplication::setActiveWindow(window_.get());
  first_->setFocus();
  EXPECT_EQ(ringed(), first_);
}

TEST_F(FocusRingTest, StandsAroundWhatIsScrolled) {
  QScrollArea area(window_.get());
  auto* page = new QWidget();
  page->setFixedSize(100, 400);
  auto* check = new QCheckBox(u"Free"_s, page);
  check->move(10, 100);
  area.setWidget(page);
  area.resize(120, 120);
  area.show();
  check->setFocus();
  press(Qt::Key_Space);
  ASSERT_EQ(ringed(), check);
  area.verticalScrollBar()->setValue(60);
  const auto* frame = window_->findChild<QFocusFrame*>();
  EXPECT_EQ(frame->mapTo(window_.get(), QPoint(3, 3)), check->mapTo(window_.get(), QPoint(0, 0)));
  const auto shape = ringShapeOf(*check);
  ASSERT_TRUE(shape);
  EXPECT_EQ(shape->rect.size(), QSizeF(16, 16));
}

}  // namespace
}  // namespace quillet
