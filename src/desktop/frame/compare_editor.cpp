// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/compare_editor.h"

#include "desktop/models/row_filter_model.h"

namespace quillet {

namespace {

NamedCompared namedOf(const AppRow& row) { return {{row.key.app, row.platform}, row.name}; }

}  // namespace

CompareEditor::CompareEditor(const ViewWorld& world, Guide& guide, Snackbar& snackbar,
                             QWidget& window)
    : world_(world), guide_(guide), snackbar_(snackbar) {
  finder_ = new CompareFinder(world.library, window, world.storefront);
  connect(finder_, &CompareFinder::chosen, this,
          [this](const ListedApp& app) { add({NamedKey{app.app, nameLine(app.name)}}); });
  connect(finder_, &CompareFinder::searched, this, &CompareEditor::searched);
  connect(&world_.compared, &CompareList::changed, this, &CompareEditor::changed);
}

void CompareEditor::add(const std::vector<NamedKey>& apps) {
  if (apps.empty()) return;
  std::vector<NamedCompared> compared;
  for (const NamedKey& app : apps) compared.push_back(namedOf(app));
  take(addToCompare(world_.compared, compared));
}

void CompareEditor::find() {
  if (!hasRoom()) return;
  finder_->open();
}

bool CompareEditor::canCompareShown() const {
  const Place& here = guide_.here();
  const RowFilterModel* rows = guide_.section() == nullptr ? nullptr : guide_.section()->rows();
  return here.section == SectionId::collections && std::holds_alternative<RowId>(here.what) &&
         rows != nullptr && rows->rowCount() >= 2;
}

void CompareEditor::compareShown() {
  if (!canCompareShown()) return;
  const RowFilterModel& rows = *guide_.section()->rows();
  std::vector<NamedCompared> compared;
  const int most = std::min(rows.rowCount(), static_cast<int>(CompareList::kMost));
  for (int i = 0; i < most; ++i) compared.push_back(quillet::namedOf(rows.at(i)));
  take(compareInstead(world_.compared, compared));
  guide_.goTo(SectionId::compare);
}

/// A row says which build its app is.
NamedCompared CompareEditor::namedOf(const NamedKey& app) const {
  const RowFilterModel* rows = guide_.section() == nullptr ? nullptr : guide_.section()->rows();
  for (int i = 0; rows != nullptr && i < rows->rowCount(); ++i) {
    if (rows->at(i).key.app == app.app) return quillet::namedOf(rows->at(i));
  }
  const auto record = world_.records.find(app.app);
  return {{app.app, record ? std::optional(record->platform) : std::nullopt}, app.name};
}

void CompareEditor::take(const CompareAddition& addition) {
  if (addition.edit) {
    world_.edits.perform(*addition.edit);
  } else {
    snackbar_.say(addition.refusal);
  }
}

}  // namespace quillet
