// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// All controls in all states, as pictures that are compared.

#include <gtest/gtest.h>

#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTest>
#include <QToolButton>
#include <QToolTip>

#include "desktop/look/focus_ring.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/posed.h"
#include "desktop/look/quillet_style.h"
#include "desktop/look/search_field.h"
#include "desktop/look/segmented_control.h"
#include "desktop/look/style_parts.h"
#include "desktop/look/switch.h"
#include "support/pictures.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

struct Column {
  QString name;
  Pose pose;
};
using Columns = std::vector<Column>;

Columns allColumns() {
  const Pose normal = QStyle::State_Enabled;
  return {{u"Normal"_s, normal},
          {u"Hover"_s, normal | QStyle::State_MouseOver},
          {u"Pressed"_s, normal | QStyle::State_MouseOver | QStyle::State_Sunken},
          {u"Key focus"_s, normal | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange},
          {u"Disabled"_s, QStyle::State_None}};
}

/// Enough to see whether what can be used is told from what cannot.
Columns usableOrNot() { return {allColumns()[0], allColumns()[4]}; }

/// Enough to see whether lines are sharp.
Columns withAndWithoutFocus() { return {allColumns()[0], allColumns()[3]}; }

QuilletStyle& style() { return *qobject_cast<QuilletStyle*>(QApplication::style()); }
Look& look() { return style().look(); }

/// Shows row after row, in each a control in the state of each column.
class Sheet {
 public:
  Sheet(Columns columns, int height, double ratio)
      : columns_(std::move(columns)),
        size_(left(columns_.size()) + 6, height),
        image_(size_ * ratio, QImage::Format_RGB32) {
    image_.setDevicePixelRatio(ratio);
    painter_.begin(&image_);
    painter_.fillRect(QRect({}, size_), look()[Token::base]);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      look().text.draw(painter_, {QRectF(left(i), 12, 96, 18)}, columns_[i].name,
                       kCaptionType.weighing(500), look()[Token::tertiary]);
    }
    PixelGrid(painter_).horizontal(16, size_.width() - 16, 36, look()[Token::line]);
  }

  template <typename Show>
  void row(const QString& name, int height, const Show& show) {
    look().text.draw(painter_, {QRectF(16, y_, 80, height)}, name, kSmallControlType,
                     look()[Token::secondary]);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      show(QRect(left(i), y_, 96, height), columns_[i].pose);
    }
    y_ += height + 10;
  }

  void put(QWidget& widget, const QRect& place) {
    widget.resize(place.size());
    widget.render(&painter_, place.topLeft(), QRegion(), QWidget::DrawChildren);
  }
  void put(QWidget& widget, const QPoint& corner) { put(widget, {corner, widget.sizeHint()}); }

  /// As put(), with the ring that the application's one would be.
  void put(QWidget& widget, const QRect& place, Pose pose) {
    put(widget, place);
    const auto shape = ringShapeOf(widget);
    if (!pose.testFlag(QStyle::State_KeyboardFocusChange) || !shape) return;
    parts::paintFocusRing(painter_, look(), shape->rect.translated(place.topLeft()), shape->radius);
  }

  [[nodiscard]] int y() const { return y_; }
  QImage taken() {
    painter_.end();
    return image_;
  }

 private:
  static int left(std::size_t column) { return 96 + static_cast<int>(column) * 106; }

  Columns columns_;
  QSize size_;
  QImage image_;
  QPainter painter_;
  int y_ = 46;
};

void buttonRow(Sheet& sheet, const QString& name, ButtonKind kind, const QString& icon,
               const QString& text) {
  sheet.row(name, 32, [&](const QRect& place, Pose pose) {
    Posed<QPushButton, QStyleOptionButton> button(pose, text);
    setButtonKind(button, kind);
    setIconName(button, icon, 14);
    sheet.put(button, place, pose);
  });
}

void toolRow(Sheet& sheet) {
  sheet.row(u"Tool"_s, 32, [&](const QRect& place, Pose pose) {
    Posed<QToolButton, QStyleOptionToolButton> plain(pose);
    setIconName(plain, u"arrow-clockwise"_s);
    sheet.put(plain, QRect(place.topLeft(), QSize(32, 32)), pose);
    Posed<QToolButton, QStyleOptionToolButton> checked(pose);
    setIconName(checked, u"layout-sidebar-reverse"_s);
    checked.setCheckable(true);
    checked.setChecked(true);
    sheet.put(checked, QRect(place.topLeft() + QPoint(44, 0), QSize(32, 32)), pose);
  });
  sheet.row(u"Tool, Qt's"_s, 32, [&](const QRect& place, Pose pose) {
    Posed<QToolButton, QStyleOptionToolButton> up(pose);
    up.setIcon(up.style()->standardIcon(QStyle::SP_FileDialogToParent, nullptr, &up));
    sheet.put(up, QRect(place.topLeft(), QSize(32, 32)), pose);
  });
}

void buttonRows(Sheet& sheet) {
  buttonRow(sheet, u"Button"_s, ButtonKind::plain, u"plus-lg"_s, u"&Add"_s);
  buttonRow(sheet, u"Primary"_s, ButtonKind::primary, {}, u"Watch"_s);
  buttonRow(sheet, u"Tinted"_s, ButtonKind::tinted, u"eye-fill"_s, u"Watching"_s);
  buttonRow(sheet, u"Flat"_s, ButtonKind::flat, {}, u"Clear"_s);
  buttonRow(sheet, u"Danger"_s, ButtonKind::danger, {}, u"Remove"_s);
  sheet.row(u"With a menu"_s, 28, [&](const QRect& place, Pose pose) {
    Posed<QPushButton, QStyleOptionButton> button(pose, u"Add to"_s);
    QMenu menu;
    button.setMenu(&menu);
    sheet.put(button, place, pose);
  });
  toolRow(sheet);
}

void fieldRows(Sheet& sheet) {
  for (const ButtonKind kind : {ButtonKind::plain, ButtonKind::flat}) {
    const bool isFlat = kind == ButtonKind::flat;
    sheet.row(isFlat ? u"Combo, flat"_s : u"Combo"_s, isFlat ? 28 : 32,
              [&](const QRect& place, Pose pose) {
                Posed<QComboBox, QStyleOptionComboBox> combo(pose);
                combo.addItem(isFlat ? u"1 year"_s : u"Added"_s);
                setButtonKind(combo, kind);
                sheet.put(combo, place, pose);
              });
  }
  sheet.row(u"Field"_s, 32, [&](const QRect& place, Pose pose) {
    Posed<QLineEdit, QStyleOptionFrame> field(pose);
    field.setPlaceholderText(u"Any price"_s);
    if (pose.testFlag(QStyle::State_HasFocus)) field.setText(u"9.99"_s);
    sheet.put(field, place, pose);
  });
  sheet.row(u"Search"_s, 32, [&](const QRect& place, Pose pose) {
    Posed<SearchField, QStyleOptionFrame> field(pose, u"Find"_s, u"/"_s);
    if (pose.testFlag(QStyle::State_HasFocus)) field.setText(u"note"_s);
    sheet.put(field, place, pose);
  });
  sheet.row(u"Spin box"_s, 32, [&](const QRect& place, Pose pose) {
    Posed<QSpinBox, QStyleOptionSpinBox> spin(pose);
    spin.setValue(30);
    if (pose.testFlag(QStyle::State_HasFocus)) spin.setMaximum(30);  // up no further
    sheet.put(spin, place, pose);
  });
}

template <typename Button>
void indicatorRow(Sheet& sheet, const QString& name, const QString& text, Qt::CheckState state) {
  sheet.row(name, 20, [&](const QRect& place, Pose pose) {
    Posed<Button, QStyleOptionButton> button(pose, text);
    if constexpr (std::is_same_v<Button, QCheckBox>) {
      button.setCheckState(state);
    } else {
      button.setChecked(state == Qt::Checked);
    }
    sheet.put(button, place, pose);
  });
}

void indicatorRows(Sheet& sheet) {
  indicatorRow<QCheckBox>(sheet, u"Check box"_s, u"Free"_s, Qt::Unchecked);
  indicatorRow<QCheckBox>(sheet, {}, u"Paid"_s, Qt::Checked);
  indicatorRow<QCheckBox>(sheet, {}, u"Some"_s, Qt::PartiallyChecked);
  indicatorRow<QRadioButton>(sheet, u"Radio"_s, u"iPad"_s, Qt::Unchecked);
  indicatorRow<QRadioButton>(sheet, {}, u"Mac"_s, Qt::Checked);
  sheet.row(u"Switch"_s, 20, [&](const QRect& place, Pose pose) {
    for (const bool isOn : {false, true}) {
      Switch onOff(u"Notify"_s);
      onOff.setChecked(isOn);
      onOff.setEnabled(pose.testFlag(QStyle::State_Enabled));
      onOff.setDown(pose.testFlag(QStyle::State_Sunken));
      onOff.setAttribute(Qt::WA_UnderMouse, pose.testFlag(QStyle::State_MouseOver));
      sheet.put(onOff, QRect(place.topLeft() + QPoint(isOn ? 48 : 0, 0), QSize(36, 20)), pose);
    }
  });
}

void barRows(Sheet& sheet) {
  sheet.row(u"Slider"_s, 20, [&](const QRect& place, Pose pose) {
    Posed<QSlider, QStyleOptionSlider> slider(pose, Qt::Horizontal);
    slider.resize(place.size());
    slider.setRange(0, 100);
    slider.setValue(45);
    if (pose.testFlag(QStyle::State_Sunken)) {
      QTest::mousePress(&slider, Qt::LeftButton, {}, parts::sliderKnob(slider).center().toPoint());
    }
    sheet.put(slider, place, pose);
  });
  sheet.row(u"Progress"_s, 12, [&](const QRect& place, Pose pose) {
    Posed<QProgressBar, QStyleOptionProgressBar> bar(pose);
    bar.setValue(60);
    sheet.put(bar, place);
  });
  sheet.row(u"Scroll bar"_s, 8, [&](const QRect& place, Pose pose) {
    Posed<QScrollBar, QStyleOptionSlider> bar(pose, Qt::Horizontal);
    bar.setRange(0, 100);
    bar.setPageStep(60);
    bar.setValue(45);
    sheet.put(bar, place);
  });
  sheet.row(u"Segmented"_s, 28, [&](const QRect& place, Pose pose) {
    SegmentedControl platforms(u"Platform"_s, {u"Mac"_s, u"iPad"_s});
    platforms.setEnabled(pose.testFlag(QStyle::State_Enabled));
    const auto segments = platforms.findChildren<QRadioButton*>();
    segments[1]->setAttribute(Qt::WA_UnderMouse, pose.testFlag(QStyle::State_MouseOver));
    if (pose.testFlag(QStyle::State_HasFocus)) {
      platforms.show();
      QApplication::setActiveWindow(&platforms);
      segments[0]->setFocus();
      platforms.setAttribute(Qt::WA_KeyboardFocusChange);
    }
    sheet.put(platforms, place);
  });
  sheet.row(u"Tab"_s, 32, [&](const QRect& place, Pose pose) {
    PosedTabs tabs(pose);
    tabs.addTab(u"Mac"_s);
    tabs.addTab(u"iPad"_s);
    sheet.put(tabs, place, pose);
  });
}

void putMenu(Sheet& sheet, const QPoint& corner) {
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
  QActionGroup orders(&menu);
  for (const QString& name : {u"By Name"_s, u"By Price"_s}) {
    QAction* order = menu.addAction(name);
    order->setCheckable(true);
    order->setActionGroup(&orders);
  }
  menu.actions().last()->setChecked(true);
  menu.setActiveAction(menu.actions().at(1));
  sheet.put(menu, corner);
}

void putComboPopup(Sheet& sheet, const QPoint& corner) {
  QComboBox combo;
  combo.addItems({u"Added"_s, u"Name"_s, u"Nearest to target"_s, u"Lowest first"_s});
  combo.setCurrentIndex(1);
  combo.resize(170, 32);
  combo.show();
  combo.showPopup();
  QWidget& popup = *combo.view()->window();
  sheet.put(popup, QRect(corner, popup.size()));
  combo.hidePopup();
}

void putHeader(Sheet& sheet, const QRect& place) {
  QStandardItemModel model(0, 3);
  model.setHorizontalHeaderLabels({u"Item"_s, u"Billing"_s, u"Price"_s});
  QHeaderView header(Qt::Horizontal);
  header.setModel(&model);
  header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header.setSortIndicatorShown(true);
  header.setSortIndicator(1, Qt::AscendingOrder);
  model.setHeaderData(2, Qt::Horizontal, int(Qt::AlignRight | Qt::AlignVCenter),
                      Qt::TextAlignmentRole);
  for (int i = 0; i < 3; ++i) header.resizeSection(i, place.width() / 3);
  sheet.put(header, place);
}

void putTooltip(Sheet& sheet, const QPoint& corner) {
  QToolTip::showText({}, u"Added 3 days ago"_s);
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (each->inherits("QTipLabel")) sheet.put(*each, corner);
  }
  QToolTip::hideText();
}

void putMenuBar(Sheet& sheet, const QRect& place) {
  PosedMenuBar bar;
  for (const QString& name : {u"&File"_s, u"&Edit"_s, u"&View"_s, u"&Go"_s}) bar.addMenu(name);
  bar.actions().at(3)->setEnabled(false);
  sheet.put(bar, place);
}

void putRest(Sheet& sheet) {
  const int y = sheet.y();
  QScrollBar bar(Qt::Vertical);
  bar.setRange(0, 100);
  sheet.put(bar, QRect(608, y, 8, 220));
  putMenu(sheet, {16, y});
  putMenuBar(sheet, QRect(284, y, 300, 28));
  putHeader(sheet, QRect(284, y + 40, 300, 28));
  putComboPopup(sheet, {284, y + 84});
  putTooltip(sheet, {468, y + 84});
}

struct Kind {
  const char* name;
  Palette palette;
  double ratio;
  Columns columns;
};

class ControlsSheetTest : public testing::TestWithParam<Kind> {};

TEST_P(ControlsSheetTest, LooksAsItDid) {
  const Kind& kind = GetParam();
  style().setPalette(kind.palette);
  const bool isWhole = kind.columns.size() == allColumns().size();
  Sheet sheet(kind.columns, isWhole ? 1120 : 730, kind.ratio);
  buttonRows(sheet);
  fieldRows(sheet);
  indicatorRows(sheet);
  if (isWhole) {
    barRows(sheet);
    putRest(sheet);
  }
  const QImage taken = sheet.taken();
  style().setPalette({Scheme::light, Contrast::normal});
  EXPECT_TRUE(looksLike(QString::fromLatin1(kind.name), taken));
}

INSTANTIATE_TEST_SUITE_P(
    Schemes, ControlsSheetTest,
    testing::Values(
        Kind{"controls-light@1", {Scheme::light, Contrast::normal}, 1, allColumns()},
        Kind{"controls-dark@1", {Scheme::dark, Contrast::normal}, 1, allColumns()},
        Kind{"controls-light-contrast@1", {Scheme::light, Contrast::more}, 1, usableOrNot()},
        Kind{"controls-dark@1.5", {Scheme::dark, Contrast::normal}, 1.5, withAndWithoutFocus()}),
    [](const auto& info) {
      std::string name = info.param.name;
      std::erase_if(name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; });
      return name;
    });

}  // namespace
}  // namespace quillet
