// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "desktop/lists/section.h"
#include "desktop/models/place.h"

class QActionGroup;
class QMenu;

namespace quillet {

class MenuButton;
class SegmentedControl;

/// The platforms to choose from, by their words.
[[nodiscard]] std::vector<SelectorChoice> dealPlatforms(std::optional<Platform> chosen);
[[nodiscard]] std::optional<Platform> dealPlatformOf(const std::string& word);
/// The storefronts with published prices.
[[nodiscard]] std::vector<SelectorChoice> dealStorefronts(const Settings& settings,
                                                          const std::string& chosen);

/// Which deals are shown, in the toolbar: of which platform and storefront.
class DealsTools : public QWidget {
  Q_OBJECT

 public:
  DealsTools();

  /// Nobody is told.
  void show(std::optional<Platform> platform, const std::string& storefront,
            std::vector<SelectorChoice> storefronts);
  using QWidget::show;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// By the user: words of the choices.
  void platformChosen(const std::string& word);
  void storefrontChosen(const std::string& code);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void fillPlatforms();
  void fillStorefronts();
  void arrange();

  SegmentedControl* segments_;
  MenuButton* platforms_;  ///< in their place where there is no room
  MenuButton* storefront_;
  std::optional<Platform> platform_;
  std::vector<SelectorChoice> storefronts_;
};

}  // namespace quillet
