// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/owned_details_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/urls.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/dialog_button.h"
#include "desktop/models/amount_text.h"
#include "desktop/models/row_parts.h"

namespace quillet {

namespace {

constexpr int kWidth = 440;

QString priceLabel(const std::string& currency) {
  const QString code = plainLine(currency);
  return code.isEmpty() ? OwnedDetailsDialog::tr("Price paid")
                        : OwnedDetailsDialog::tr("Price paid (%1)").arg(code);
}

QLabel* labelOf(QLineEdit& field, const QString& text) {
  auto* label = new QLabel(text);
  label->setBuddy(&field);
  field.setAccessibleName(text);
  return label;
}

}  // namespace

OwnedDetailsDialog::OwnedDetailsDialog(const OwnedApp& app, const std::string& currency,
                                       QWidget* parent)
    : QDialog(parent),
      before_{app.priceWhenAdded, app.currency, app.trackViewUrl, app.skippedVersion},
      currency_(app.currency.value_or(currency)),
      price_(new QLineEdit),
      link_(new QLineEdit(QString::fromStdString(app.trackViewUrl.value_or("")))),
      remark_(new TextLabel(kFactType, Token::secondary)),
      save_(new DialogButton(tr("Save"), ButtonKind::primary)) {
  const QString title = tr("Details of “%1”").arg(nameLine(app.name));
  setWindowTitle(title);
  setAccessibleName(title);
  setFixedWidth(kWidth);
  setAttribute(Qt::WA_DeleteOnClose);
  if (app.priceWhenAdded) price_->setText(amountText(*app.priceWhenAdded, QLocale()));
  price_->selectAll();
  link_->setCursorPosition(0);
  save_->setDefault(true);
  auto* cancel = new DialogButton(tr("Cancel"));
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cancel);
  buttons->addWidget(save_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 20);
  layout->setSpacing(8);
  layout->addWidget(labelOf(*price_, priceLabel(currency_)));
  layout->addWidget(price_);
  layout->addWidget(labelOf(*link_, tr("Link to the store")));
  layout->addWidget(link_);
  layout->addWidget(remark_);
  layout->addLayout(buttons);
  setTabOrder(price_, link_);
  setTabOrder(link_, cancel);
  setTabOrder(cancel, save_);
  for (QLineEdit* field : {price_, link_})
    connect(field, &QLineEdit::textChanged, this, &OwnedDetailsDialog::judge);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(save_, &QPushButton::clicked, this, &QDialog::accept);
  judge();
}

OwnedDetails OwnedDetailsDialog::details() const {
  OwnedDetails details = before_;
  const QString price = price_->text().trimmed();
  const std::optional<double> amount = readAmount(price, QLocale());
  details.priceWhenAdded = amount;
  if (amount && !currency_.empty()) details.currency = currency_;
  const QString link = link_->text().trimmed();
  details.trackViewUrl = link.isEmpty() ? std::nullopt : std::optional(link.toStdString());
  return details;
}

/// An empty field is nothing known.
void OwnedDetailsDialog::judge() {
  const QString price = price_->text().trimmed();
  const QString link = link_->text().trimmed();
  const bool isPrice = price.isEmpty() || readAmount(price, QLocale());
  const bool isLink = link.isEmpty() || isWebAddress(link.toStdString());
  QString remark = QStringLiteral(" ");  // keeps its place
  if (!isPrice) remark = tr("A price is a number, 0 or above.");
  if (!isLink) remark = tr("A link begins with https://.");
  remark_->setText(remark);
  save_->setEnabled(isPrice && isLink);
}

}  // namespace quillet
