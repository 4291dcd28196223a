// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QVBoxLayout>

#include "analysis/update_state.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_price.h"
#include "desktop/page/value_grid.h"

namespace quillet {

namespace {

/// What the user has of the app.
class OwnedBlock : public Block {
 public:
  OwnedBlock(const QString& title, const PageWorld& world)
      : Block(title), world_(world), grid_(new ValueGrid(this)) {
    content().addWidget(grid_);
  }

  bool fill(const PageFacts& known) override {
    return known.owned && grid_->show(valuesOf(*known.owned));
  }

 private:
  [[nodiscard]] std::vector<NamedValue> valuesOf(const OwnedApp& app) const {
    const ViewWorld& view = world_.view;
    const bool hasUpdate = isUpdateAvailable(app.installedVersion, app.storeVersion) == true;
    const bool isSkipped =
        hasUpdate && !isUpdateWanted(app.installedVersion, app.storeVersion, app.skippedVersion);
    const QString update = plainLine(app.storeVersion);
    return {{tr("Installed"), plainLine(app.installedVersion)},
            {tr("Update"),
             hasUpdate ? (isSkipped ? tr("%1, skipped").arg(update) : update) : QString()},
            {tr("On disk"), sizeText(app)},
            {tr("Paid"), paidText(app)},
            {tr("Added"), dateText(app.addedAt, view.clock.now(), view.zone)},
            {tr("Location"), plainLine(app.installedPath)}};
  }

  [[nodiscard]] QString sizeText(const OwnedApp& app) const {
    if (app.installedSizeBytes.value_or(0) <= 0) return {};
    return QString::fromStdString(world_.formats->byteCount(*app.installedSizeBytes));
  }

  [[nodiscard]] QString paidText(const OwnedApp& app) const {
    if (!app.priceWhenAdded) return {};
    return priceText(*app.priceWhenAdded, app.currency.value_or(""), *world_.formats);
  }

  PageWorld world_;
  ValueGrid* grid_;
};

}  // namespace

Block* makeOwnedBlock(const QString& title, const PageWorld& world) {
  return new OwnedBlock(title, world);
}

}  // namespace quillet
