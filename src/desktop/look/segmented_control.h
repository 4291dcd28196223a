// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QWidget>

class QButtonGroup;

namespace quillet {

/// One choice of a few words that stand side by side: platforms, charts. Radio buttons in another
/// shape: the arrow keys move the choice.
class SegmentedControl : public QWidget {
  Q_OBJECT

 public:
  /// `name` is what is chosen: "Platform".
  SegmentedControl(const QString& name, const QStringList& choices, QWidget* parent = nullptr);

  [[nodiscard]] int chosen() const;
  void choose(int index);
  /// Whether one of the choices can be made; if not, its tooltip says why.
  void setOffered(int index, bool isOffered, const QString& why = {});
  /// Gives it to the choice that is made.
  void takeFocus(Qt::FocusReason reason);

 Q_SIGNALS:
  /// By the user.
  void chosenChanged(int index);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QButtonGroup* group_;
};

}  // namespace quillet
