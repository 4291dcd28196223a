// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <string>

#include "desktop/models/place.h"

class QActionGroup;

namespace quillet {

class ChoiceControl;
class FiltersButton;
class MenuButton;
class StorefrontMenu;
class TextLabel;

/// Which chart is shown, in the toolbar: its kind, the platform, the category, the storefront, and
/// the button of the filters. Given the focus, the first of them takes it.
class ChartTools : public QWidget {
  Q_OBJECT

 public:
  ChartTools();

  /// The query has a chart. Nobody is told.
  void setQuery(const StoreQuery& query, const std::string& storefront);
  void setFilters(int active, bool areShown);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// By the IDs of the selectors' choices.
  void chartChosen(const std::string& id);
  void platformChosen(const std::string& id);
  void categoryChosen(const std::string& id);
  void storefrontChosen(const std::string& code);
  void filtersToggled();

 protected:
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  /// How they stand where there is less and less room.
  struct Form {
    bool hasTitle = true;
    bool isFiltersShort = false;
    bool isPlatformShort = false;
    bool isChartShort = false;
  };

  void makeCategories();
  void arrange();
  [[nodiscard]] int widthIn(const Form& form) const;

  TextLabel* title_;
  ChoiceControl* charts_;
  ChoiceControl* platforms_;
  MenuButton* category_;
  QActionGroup* categories_;
  MenuButton* storefront_;
  StorefrontMenu* storefronts_;
  FiltersButton* filters_ = nullptr;
};

}  // namespace quillet
