// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/models/app_list_model.h"
#include "desktop/models/row_filter_model.h"

namespace quillet {

class AppListView;
class ImageStore;

/// A row of a list as the settings make it, of an app that nobody sells.
class SampleRow : public QWidget {
  Q_OBJECT

 public:
  /// The pictures outlive it.
  explicit SampleRow(ImageStore& images);
  ~SampleRow() override;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  AppListModel rows_;
  RowFilterModel shown_;
  AppListView* view_;
};

}  // namespace quillet
