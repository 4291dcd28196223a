// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QStyledItemDelegate>

#include "desktop/lists/row_pictures.h"
#include "desktop/lists/row_places.h"

namespace quillet {

class AppListView;
struct RowExtras;

/// Paints the rows of a list: a record, by its list's layout.
class AppRowDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// The view owns it.
  AppRowDelegate(AppListView& view, const RowLayout& layout, ImageStore& images);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
  /// Of what edits a note, in the place of the note.
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;
  /// Where a click changes whether the row's app is watched; empty where there is no mark of it.
  [[nodiscard]] QRect watchMark(const QStyleOptionViewItem& option, const QModelIndex& index) const;
  /// Tells the whole name or note where it was cut, and what a click on a mark does.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 private:
  struct CutKey {
    QString text;
    int width = 0;
    int type = 0;
    bool operator==(const CutKey&) const = default;
    friend size_t qHash(const CutKey& key, size_t seed) {
      return qHashMulti(seed, key.text, key.width, key.type);
    }
  };
  struct StarsKey {
    int halves = 0;
    int ratio = 0;  ///< in hundredths
    int size = 0;   ///< in hundredths
    QRgb full = 0;
    QRgb empty = 0;
    bool operator==(const StarsKey&) const = default;
    friend size_t qHash(const StarsKey& key, size_t seed) {
      return qHashMulti(seed, key.halves, key.ratio, key.size, key.full, key.empty);
    }
  };
  /// What is painted now.
  struct Canvas;

  void paintGround(Canvas& canvas) const;
  void paintRank(Canvas& canvas) const;
  void paintTexts(Canvas& canvas) const;
  void paintPrice(Canvas& canvas) const;
  void paintDealColumns(Canvas& canvas) const;
  void paintMarks(Canvas& canvas) const;
  void paintPictures(Canvas& canvas) const;
  void paintStarsOf(Canvas& canvas) const;
  void paintLine(Canvas& canvas) const;
  void text(Canvas& canvas, const QRectF& line, const QString& text, const TypeStyle& style,
            const QColor& color, TextAnchor anchor = TextAnchor::left) const;
  /// Finding where to cut a text takes a dozen measurements: it is done once.
  [[nodiscard]] QString cut(Look& look, const QString& text, const TypeStyle& style,
                            double width) const;

  const AppListView& view_;
  RowLayout layout_;
  // Painting fills these, though for whoever asks nothing changes.
  mutable RowPictures pictures_;
  mutable QCache<CutKey, QString> cuts_;
  mutable double cutsScale_ = 1;
  mutable QCache<StarsKey, QPixmap> stars_;
};

}  // namespace quillet
