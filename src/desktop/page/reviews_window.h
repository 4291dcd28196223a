// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <string>
#include <vector>

#include "desktop/models/review_list_model.h"
#include "desktop/models/review_reader.h"
#include "desktop/models/view_world.h"
#include "export/review_table.h"

class QPushButton;
class QToolButton;

namespace quillet {

class Chip;
class ListPlaceholder;
class ListStrip;
class ReviewListView;
class SearchField;
class SegmentedControl;
class TextLabel;
class ViewerNotice;

/// What the window of an app's reviews begins with.
struct ReviewsOf {
  ReviewSubject subject;
  QString name;         ///< of the app
  std::string country;  ///< of its page
  std::vector<AppReview> first;
  std::vector<VersionEntry> releases;
};

/// All reviews of an app: by stars, by storefront, in either order, by what they say. A window of
/// its own, so that the page stays as it was, beside it or behind.
class ReviewsWindow : public QWidget {
  Q_OBJECT

 public:
  ReviewsWindow(const ReviewsOf& reviews, const ViewWorld& world, QWidget* parent);
  ~ReviewsWindow() override;

  /// Whether it shows any review.
  [[nodiscard]] bool canExport() const;
  /// Asks for a file, and writes those that it shows to it.
  void exportReviews();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void lay(const QString& name);
  [[nodiscard]] QWidget* makeTools(const QString& name);
  [[nodiscard]] QWidget* makeChips();
  void fillMenu();
  void setStorefront(const std::string& country, bool isWanted);
  void setStorefronts(std::vector<std::string> countries);
  void choose();
  void filter();
  void step(Chip* from, int by);
  void take();
  void showTally();
  void showPlaceholder();
  void readEnd();
  static Task<> exportTo(QPointer<ReviewsWindow> window, std::filesystem::path file,
                         std::vector<ReviewTableRow> reviews);

  ViewWorld world_;
  QString name_;                      ///< of the app
  std::vector<std::string> offered_;  ///< storefronts, the page's own first
  std::vector<std::string> chosen_;
  ReviewReader reader_;
  ReviewListModel reviews_;
  QPushButton* storefronts_;
  SegmentedControl* order_;
  SearchField* text_;
  std::vector<Chip*> chips_;  ///< from five stars down
  TextLabel* tally_;
  QToolButton* exports_;
  ListStrip* strip_;
  ReviewListView* list_;
  ListPlaceholder* placeholder_;
  ViewerNotice* notice_;
  bool wasFocused_ = false;  ///< whether the list had the focus before it was hidden
  QTimer typing_;
};

}  // namespace quillet
