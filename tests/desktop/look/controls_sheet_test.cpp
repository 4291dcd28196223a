// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// All controls in all states, as pictures that are compared.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTabBar>
#include <QToolButton>

#include "desktop/look/focus_ring.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/quillet_style.h"
#include "desktop/look/segmented_control.h"
#include "desktop/look/style_parts.h"
#include "desktop/look/switch.h"
#include "support/pictures.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr QSize kSheet(632, 1010);

struct Column {
  QString name;
  QStyle::State state;
};

const std::array<Column, 5>& columns() {
  static const std::array<Column, 5> kColumns{{
      {u"Normal"_s, QStyle::State_Enabled},
      {u"Hover"_s, QStyle::State_Enabled | QStyle::State_MouseOver},
      {u"Pressed"_s, QStyle::State_Enabled | QStyle::State_MouseOver | QStyle::State_Sunken},
      {u"Key focus"_s,
       QStyle::State_Enabled | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange},
      {u"Disabled"_s, QStyle::State_None},
  }};
  return kColumns;
}

QuilletStyle& style() { return *qobject_cast<QuilletStyle*>(QApplication::style()); }

/// Draws row after row; each control comes as it looks in the state of its column.
class Sheet {
 public:
  explicit Sheet(double ratio) : image_(kSheet * ratio, QImage::Format_RGB32) {
    image_.setDevicePixelRatio(ratio);
    painter_.begin(&image_);
    painter_.fillRect(QRect({}, kSheet), look()[Token::base]);
    for (std::size_t i = 0; i < columns().size(); ++i) {
      look().text.draw(painter_, {QRectF(left(i), 12, 96, 18)}, columns()[i].name,
                       kCaptionType.weighing(500), look()[Token::tertiary]);
    }
    PixelGrid(painter_).horizontal(16, kSheet.width() - 16, 36, look()[Token::line]);
  }

  template <typename Paint>
  void row(const QString& name, int height, const Paint& paint) {
    look().text.draw(painter_, {QRectF(16, y_, 80, height)}, name, kSmallControlType,
                     look()[Token::secondary]);
    for (std::size_t i = 0; i < columns().size(); ++i) {
      paint(painter_, QRect(left(i), y_, 96, height), columns()[i].state);
    }
    y_ += height + 10;
  }

  /// As row(), with the ring that the widget would get.
  template <typename Paint>
  void row(const QString& name, int height, QWidget& widget, const Paint& paint) {
    row(name, height, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
      paint(painter, rect, state);
      if (state.testFlag(QStyle::State_KeyboardFocusChange)) ring(rect, widget);
    });
  }

  void ring(const QRect& rect, QWidget& widget) {
    widget.resize(rect.size());
    const auto shape = ringShapeOf(widget);
    if (!shape) return;
    parts::paintFocusRing(painter_, look(), shape->rect.translated(rect.topLeft()), shape->radius);
  }

  QPainter& painter() { return painter_; }
  [[nodiscard]] int y() const { return y_; }
  QImage taken() {
    painter_.end();
    return image_;
  }
  static Look& look() { return style().look(); }

 private:
  static int left(std::size_t column) { return 96 + static_cast<int>(column) * 106; }

  QImage image_;
  QPainter painter_;
  int y_ = 46;
};

void buttonRow(Sheet& sheet, const QString& name, ButtonKind kind, const QString& icon,
               const QString& text) {
  QPushButton button;
  setButtonKind(button, kind);
  setIconName(button, icon, 14);
  sheet.row(name, 32, button, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
    QStyleOptionButton option;
    option.rect = rect;
    option.state = state | QStyle::State_Raised;
    option.text = text;
    style().drawControl(QStyle::CE_PushButton, &option, &painter, &button);
  });
}

void buttonRows(Sheet& sheet) {
  buttonRow(sheet, u"Button"_s, ButtonKind::plain, u"plus-lg"_s, u"&Add"_s);
  buttonRow(sheet, u"Primary"_s, ButtonKind::primary, {}, u"Watch"_s);
  buttonRow(sheet, u"Tinted"_s, ButtonKind::tinted, u"eye-fill"_s, u"Watching"_s);
  buttonRow(sheet, u"Flat"_s, ButtonKind::flat, {}, u"Clear"_s);
  buttonRow(sheet, u"Danger"_s, ButtonKind::danger, {}, u"Remove"_s);
  QToolButton plain;
  setIconName(plain, u"arrow-clockwise"_s);
  QToolButton checked;
  setIconName(checked, u"layout-sidebar-reverse"_s);
  sheet.row(u"Tool"_s, 32, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
    QStyleOptionToolButton option;
    option.rect = QRect(rect.topLeft(), QSize(32, 32));
    option.state = state;
    const bool hasRing = state.testFlag(QStyle::State_KeyboardFocusChange);
    style().drawComplexControl(QStyle::CC_ToolButton, &option, &painter, &plain);
    if (hasRing) sheet.ring(option.rect, plain);
    option.rect.translate(44, 0);
    option.state |= QStyle::State_On;
    style().drawComplexControl(QStyle::CC_ToolButton, &option, &painter, &checked);
    if (hasRing) sheet.ring(option.rect, checked);
  });
}

void fieldRows(Sheet& sheet) {
  for (const ButtonKind kind : {ButtonKind::plain, ButtonKind::flat}) {
    QComboBox combo;
    setButtonKind(combo, kind);
    const bool isFlat = kind == ButtonKind::flat;
    sheet.row(isFlat ? u"Combo, flat"_s : u"Combo"_s, isFlat ? 28 : 32, combo,
              [&](QPainter& painter, const QRect& rect, QStyle::State state) {
                QStyleOptionComboBox option;
                option.rect = rect;
                option.state = state;
                option.currentText = isFlat ? u"1 year"_s : u"Added"_s;
                style().drawComplexControl(QStyle::CC_ComboBox, &option, &painter, &combo);
                style().drawControl(QStyle::CE_ComboBoxLabel, &option, &painter, &combo);
              });
  }
  QLineEdit field;
  sheet.row(u"Field"_s, 32, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
    QStyleOptionFrame option;
    option.rect = rect;
    option.state = state;
    style().drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, &field);
  });
  QSpinBox spin;
  sheet.row(u"Spin box"_s, 32, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
    QStyleOptionSpinBox option;
    option.rect = rect;
    option.state = state;
    option.stepEnabled = QAbstractSpinBox::StepUpEnabled;
    option.activeSubControls = QStyle::SC_SpinBoxUp;
    style().drawComplexControl(QStyle::CC_SpinBox, &option, &painter, &spin);
  });
}

void indicatorRows(Sheet& sheet) {
  struct Row {
    QString name;
    QStyle::ControlElement element;
    QString text;
    QStyle::State state;
  };
  const std::array<Row, 5> rows{{
      {u"Check box"_s, QStyle::CE_CheckBox, u"Free"_s, QStyle::State_Off},
      {{}, QStyle::CE_CheckBox, u"Paid"_s, QStyle::State_On},
      {{}, QStyle::CE_CheckBox, u"Some"_s, QStyle::State_NoChange},
      {u"Radio"_s, QStyle::CE_RadioButton, u"iPad"_s, QStyle::State_Off},
      {{}, QStyle::CE_RadioButton, u"Mac"_s, QStyle::State_On},
  }};
  QCheckBox checkBox;
  QRadioButton radioButton;
  for (const Row& row : rows) {
    QWidget& widget = row.element == QStyle::CE_CheckBox ? static_cast<QWidget&>(checkBox)
                                                         : static_cast<QWidget&>(radioButton);
    sheet.row(row.name, 20, widget, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
      QStyleOptionButton option;
      option.rect = rect;
      option.state = state | row.state;
      option.text = row.text;
      style().drawControl(row.element, &option, &painter, &widget);
    });
  }
  Switch onOff(u"Notify"_s);
  sheet.row(u"Switch"_s, 20, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
    QStyleOption option;
    option.state = state;
    for (const bool isOn : {false, true}) {
      const QRect place(rect.topLeft() + QPoint(isOn ? 48 : 0, 0), QSize(36, 20));
      option.state.setFlag(QStyle::State_On, isOn);
      parts::paintSwitch(painter, Sheet::look(), place, parts::stateOf(option));
      if (state.testFlag(QStyle::State_KeyboardFocusChange)) sheet.ring(place, onOff);
    }
  });
}

void barRows(Sheet& sheet) {
  QSlider slider(Qt::Horizontal);
  slider.setRange(0, 100);
  slider.setValue(45);
  QScrollBar bar;
  QTabBar tabs;
  QStyleOptionSlider range;
  range.orientation = Qt::Horizontal;
  range.maximum = 100;
  range.sliderPosition = 45;
  range.pageStep = 60;
  range.activeSubControls = QStyle::SC_SliderHandle;
  sheet.row(u"Slider"_s, 20, slider,
            [&](QPainter& painter, const QRect& rect, QStyle::State state) {
              range.rect = rect;
              range.state = state;
              style().drawComplexControl(QStyle::CC_Slider, &range, &painter, &slider);
            });
  sheet.row(u"Progress"_s, 12, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
    QStyleOptionProgressBar option;
    option.rect = rect;
    option.state = state | QStyle::State_Horizontal;
    option.maximum = 100;
    option.progress = 60;
    style().drawControl(QStyle::CE_ProgressBarGroove, &option, &painter, nullptr);
  });
  sheet.row(u"Scroll bar"_s, 12, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
    range.rect = rect.adjusted(0, 2, 0, -2);
    range.state = state;
    style().drawComplexControl(QStyle::CC_ScrollBar, &range, &painter, &bar);
  });
  sheet.row(u"Tab"_s, 32, [&](QPainter& painter, const QRect& rect, QStyle::State state) {
    QStyleOptionTab option;
    for (const bool isSelected : {true, false}) {
      option.rect = QRect(rect.x() + (isSelected ? 0 : 48), rect.y(), 48, 32);
      option.text = isSelected ? u"Mac"_s : u"iPad"_s;
      option.state = isSelected ? state | QStyle::State_Selected
                                : state & ~QStyle::State(QStyle::State_HasFocus);
      style().drawControl(QStyle::CE_TabBarTabShape, &option, &painter, &tabs);
      style().drawControl(QStyle::CE_TabBarTabLabel, &option, &painter, &tabs);
    }
  });
}

void addMenu(Sheet& sheet) {
  QMenu menu;
  menu.addAction(u"&Open\tEnter"_s);
  menu.addAction(u"Open in App Store"_s);
  menu.addSeparator();
  QAction* watching = menu.addAction(u"Watching\tCtrl+D"_s);
  watching->setCheckable(true);
  watching->setChecked(true);
  menu.addMenu(u"Add to Collection"_s);
  menu.addAction(u"Compare Storefronts"_s)->setEnabled(false);
  menu.addSeparator();
  menu.addAction(u"Copy Link\tCtrl+C"_s);
  menu.setActiveAction(menu.actions().at(1));
  menu.ensurePolished();
  menu.resize(menu.sizeHint());
  menu.render(&sheet.painter(), QPoint(16, sheet.y() + 40), QRegion(), QWidget::DrawChildren);
  SegmentedControl platforms(u"Platform"_s, {u"Mac"_s, u"iPhone"_s, u"iPad"_s});
  platforms.resize(platforms.sizeHint());
  platforms.render(&sheet.painter(), QPoint(16, sheet.y()), QRegion(), QWidget::DrawChildren);
}

class ControlsSheetTest : public testing::TestWithParam<std::tuple<Scheme, double>> {};

TEST_P(ControlsSheetTest, LooksAsItDid) {
  const auto [scheme, ratio] = GetParam();
  style().setPalette(Palette(scheme, Contrast::normal));
  Sheet sheet(ratio);
  buttonRows(sheet);
  fieldRows(sheet);
  indicatorRows(sheet);
  barRows(sheet);
  addMenu(sheet);
  const QString name = QStringLiteral("controls-%1@%2")
                           .arg(scheme == Scheme::dark ? u"dark"_s : u"light"_s)
                           .arg(ratio);
  EXPECT_TRUE(looksLike(name, sheet.taken()));
}

INSTANTIATE_TEST_SUITE_P(Schemes, ControlsSheetTest,
                         testing::Values(std::tuple(Scheme::light, 1.0),
                                         std::tuple(Scheme::dark, 1.0),
                                         std::tuple(Scheme::light, 2.0)));

}  // namespace
}  // namespace quillet
