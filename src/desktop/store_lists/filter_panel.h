// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <cstddef>
#include <optional>
#include <vector>

#include "desktop/store_lists/filter_choices.h"
#include "desktop/store_lists/panel_rows.h"

class QAbstractButton;
class QScrollArea;
class QVBoxLayout;

namespace quillet {

/// All filters of a search beside its rows, each choice with the number of apps that it would
/// leave. Values that no choice has, of a saved search or typed, are shown as what they are.
class FilterPanel : public QWidget {
  Q_OBJECT

 public:
  FilterPanel();

  /// Nobody is told. What the user is typing stays.
  void show(const FilterPanelState& state);
  using QWidget::show;

  /// The filters that each choice stands for, in the order of the panel.
  [[nodiscard]] std::vector<AppFilters> choices() const;
  /// How many apps each of choices() would leave; nothing is drawn for one that is not known.
  void setCounts(const std::vector<std::optional<std::size_t>>& counts);

  /// How wide it is where there is room.
  [[nodiscard]] int usualWidth() const;
  /// Takes no more than this, unless its texts could not be read.
  void setRoom(int width);

  [[nodiscard]] QSize sizeHint() const override;

 Q_SIGNALS:
  /// By the user.
  void changed(const quillet::AppFilters& filters);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// What shows one filter: choices one below the other, a menu, or both.
  struct Part {
    FilterField field;
    QVBoxLayout* rows = nullptr;
    std::vector<ChoiceRow*> radios;
    std::vector<std::size_t> shown;  ///< which choices they are
    TickRow* tick = nullptr;
    MenuRow* menu = nullptr;
  };

  void addRadios(FilterField field);
  void addRadio(FilterField field);
  void addMenu(FilterField field);
  [[nodiscard]] MenuRow* newMenu(FilterField field);
  void addTick();
  void addHairline();
  void connectEntries();
  [[nodiscard]] Part& partOf(FilterField field);

  void showPart(Part& part);
  void showRadios(Part& part, const FilterGroup& group);
  void fillMenu(FilterField field);
  void showCounts();
  void showMaxPrice();
  void fitScrollBar();

  /// The user chose these. A copy: they may be those of a choice, which goes.
  void take(AppFilters filters);
  void takeMaxPrice(const QString& text);
  void takeSystem(const QString& text);
  void takeYear(const QString& text);
  void nameYear();
  void askForYear(bool isBefore);
  void askForSystem();

  [[nodiscard]] const FilterGroup* groupOf(FilterField field) const;
  [[nodiscard]] LiveCount countOf(FilterField field, std::size_t choice) const;

  FilterPanelState state_;
  std::vector<FilterGroup> groups_;
  std::vector<LiveCount> counts_;  ///< of all choices; empty while none is known
  std::vector<Part> parts_;
  QAbstractButton* clear_;
  QScrollArea* area_;
  QVBoxLayout* rows_;
  TypedRow* maxPrice_ = nullptr;
  TypedRow* year_ = nullptr;
  TypedRow* system_ = nullptr;
  bool isYearBefore_ = false;  ///< whether what is typed is a year that apps are older than
  bool isTold_ = true;         ///< whether a change is the user's
};

}  // namespace quillet
