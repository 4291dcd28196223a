// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <vector>

#include "desktop/models/app_row.h"
#include "desktop/page/price_sentence.h"

namespace quillet {

/// A price that a day brought.
struct PriceChange {
  QString day;
  QString price;
  QString change;  ///< "−50 %"; empty of the first, and after a price of 0
  PriceMove move = PriceMove::none;
  QString origin = {};  ///< who saw it

  friend bool operator==(const PriceChange&, const PriceChange&) = default;
};

/// The changes of a price, the newest first and the first recorded price last. As priceSentence()
/// takes the prices.
[[nodiscard]] std::vector<PriceChange> priceChanges(const std::vector<RecordedPrice>& prices,
                                                    const SentenceTerms& terms);

/// The changes as rows.
class PriceTable : public QWidget {
  Q_OBJECT

 public:
  explicit PriceTable(QWidget* parent = nullptr);
  void show(const std::vector<PriceChange>& changes);
  using QWidget::show;

 private:
  std::vector<PriceChange> changes_;
  std::vector<QWidget*> rows_;
};

}  // namespace quillet
