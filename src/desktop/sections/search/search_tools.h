// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <string>

#include "desktop/models/place.h"
#include "desktop/models/view_world.h"

namespace quillet {

class ChoiceControl;
class FiltersButton;
class MenuButton;
class QueryField;
class StorefrontMenu;

/// What a search is asked with, in the toolbar: the words, the platform, the storefront, and the
/// button of the filters. Given the focus, the field takes it.
class SearchTools : public QWidget {
  Q_OBJECT

 public:
  explicit SearchTools(const ViewWorld& world);

  /// Nobody is told.
  void setQuery(const StoreQuery& query, const std::string& storefront);
  void setFilters(int active, bool areShown);
  /// The button of the orders, before that of the filters; owned from now on.
  void placeSort(QWidget* sort);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void submitted(const QString& text);
  /// A recent or a saved search, with all that it asks.
  void chosen(const quillet::StoreQuery& query);
  void platformChosen(quillet::Platform platform);
  void storefrontChosen(const std::string& code);
  void filtersToggled();
  /// The user wants to go on to the rows.
  void left();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void arrange();
  [[nodiscard]] int sortWidth() const;
  [[nodiscard]] int widthBeside(bool hasSegments, bool isFiltersShort) const;

  QueryField* field_;
  ChoiceControl* platforms_;
  MenuButton* storefront_;
  StorefrontMenu* storefronts_;
  FiltersButton* filters_ = nullptr;
  QWidget* sort_ = nullptr;  ///< none without a window around
};

}  // namespace quillet
