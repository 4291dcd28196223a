// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QScrollArea>
#include <map>
#include <set>
#include <string>

#include "desktop/dialogs/report_document.h"
#include "export/report_parts.h"

class QCheckBox;
class QComboBox;
class QRadioButton;
class QVBoxLayout;

namespace quillet {

class StorefrontBox;

/// What the user wants of a report.
struct ReportWish {
  ReportForm form = ReportForm::markdown;
  std::set<ReportPart> without;
  std::size_t reviews = 0;

  friend bool operator==(const ReportWish&, const ReportWish&) = default;
};

/// A wish as it is remembered; what cannot be read is as at first.
[[nodiscard]] QJsonObject jsonOf(const ReportWish& wish);
[[nodiscard]] ReportWish reportWishOf(const QJsonObject& json);

/// The choices beside a report: what it is written as, what it holds, and of which storefront.
class ReportChoices : public QScrollArea {
  Q_OBJECT

 public:
  explicit ReportChoices(const ReportWish& wish);

  [[nodiscard]] ReportWish wish() const;
  /// Gives it to the format that is chosen.
  void takeFocus();
  /// Nobody is told.
  void setStorefront(const std::string& country);

 Q_SIGNALS:
  void wishChanged();
  void storefrontChosen(const std::string& country);

 private:
  void addForms(ReportForm chosen);
  void addParts(const std::set<ReportPart>& without);
  void addReviews(std::size_t wanted);
  void addStorefront();
  void addTitle(const QString& text, QWidget* buddy);

  QVBoxLayout* column_;
  std::map<ReportForm, QRadioButton*> forms_;
  std::map<ReportPart, QCheckBox*> parts_;
  QComboBox* reviews_ = nullptr;
  StorefrontBox* storefront_ = nullptr;
};

}  // namespace quillet
