// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/query_field.h"

#include <QKeyEvent>

#include "desktop/models/recent_searches.h"
#include "desktop/sections/search/hint_list.h"

namespace quillet {

namespace {
const auto kName = QT_TRANSLATE_NOOP("quillet::QueryField", "Search the App Store");
}

QueryField::QueryField(const ViewWorld& world, QWidget* parent)
    : SearchField(tr(kName), {}, parent), world_(world), list_(new HintList(*this)) {
  connect(this, &QLineEdit::textEdited, this, &QueryField::suggest);
  connect(list_, &HintList::picked, this, &QueryField::take);
}

/// The list may be the window's by now.
QueryField::~QueryField() { delete list_; }

void QueryField::setShownText(const QString& text) {
  if (text == shown_) return;
  shown_ = text;
  list_->hide();
  setText(text);
}

/// What is known is read once for each time that the user comes here.
void QueryField::focusInEvent(QFocusEvent* event) {
  SearchField::focusInEvent(event);
  if (event->reason() == Qt::PopupFocusReason) return;
  recent_ = hintsOf(recentSearches(world_.state.value(QString::fromLatin1(kRecentSearchesKey))));
  detach(read(this, ++generation_), "Suggestions");
}

Task<> QueryField::read(QPointer<QueryField> field, int generation) {
  std::vector<SearchHint> known = co_await field->world_.library.read(libraryHints);
  if (!field || field->generation_ != generation) co_return;
  field->known_ = std::move(known);
  if (field->list_->isVisible()) field->suggest();
}

void QueryField::suggest() {
  std::vector<SearchHint> all = recent_;
  all.insert(all.end(), known_.begin(), known_.end());
  list_->show(matchingHints(all, text()), world_.storefront());
}

void QueryField::goDown() {
  if (!list_->isVisible()) suggest();
  if (list_->isVisible()) {
    list_->step(1);
  } else {
    Q_EMIT left();
  }
}

void QueryField::submit() {
  if (const SearchHint* hint = list_->current()) {
    take(SearchHint(*hint));
    return;
  }
  list_->hide();
  Q_EMIT submitted(text());
}

void QueryField::take(const SearchHint& hint) {
  list_->hide();
  setText(QString::fromStdString(hint.query.request.query));
  if (hint.kind == HintKind::recent || hint.kind == HintKind::saved) {
    Q_EMIT chosen(hint.query);
  } else {
    Q_EMIT submitted(text());
  }
}

/// Esc is the field's own while there is something to close or to clear, and the window's else.
bool QueryField::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && (list_->isVisible() || !text().isEmpty()) &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  return SearchField::event(event);
}

void QueryField::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: submit(); return;
    case Qt::Key_Down: goDown(); return;
    case Qt::Key_Up:
      if (!list_->isVisible()) break;
      list_->step(-1);
      return;
    case Qt::Key_Escape:
      if (list_->isVisible()) {
        list_->hide();
      } else if (!text().isEmpty()) {
        clear();
      } else {
        break;
      }
      return;
    default: break;
  }
  SearchField::keyPressEvent(event);
}

}  // namespace quillet
