// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QLocale>
#include <QVBoxLayout>

#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/page/block_table.h"
#include "desktop/page/value_grid.h"
#include "store/records/itunes_app.h"

namespace quillet {

namespace {

class InformationBlock : public Block {
 public:
  InformationBlock(const QString& title, const PageWorld& world)
      : Block(title), world_(world), grid_(new ValueGrid(this)) {
    content().addWidget(grid_);
  }

  bool fill(const PageFacts& known) override {
    std::vector<NamedValue> values;
    if (known.cached) values = valuesOf(*known.cached);
    if (!known.cached && known.owned)
      values.push_back({tr("Bundle ID"), plainLine(known.owned->bundleId)});
    values.push_back({tr("Track ID"), QString::number(known.app.trackId)});
    return grid_->show(std::move(values));
  }

 private:
  [[nodiscard]] std::vector<NamedValue> valuesOf(const CachedApp& app) const {
    return {{tr("Size"), sizeText(app)},
            {tr("Category"), plainLine(app.primaryGenreName)},
            {tr("Age rating"), plainLine(app.contentAdvisoryRating)},
            {tr("Languages"), languagesText(app)},
            {tr("Needs"), systemText(app)},
            {tr("Version"), versionText(app)},
            {tr("Built for"), app.needsRosetta == true ? tr("Intel, needs Rosetta") : QString()},
            {tr("Bundle ID"), plainLine(app.bundleId)}};
  }

  [[nodiscard]] QString sizeText(const CachedApp& app) const {
    if (app.fileSizeBytes.value_or(0) <= 0) return {};
    return QString::fromStdString(world_.formats->byteCount(*app.fileSizeBytes));
  }

  static QString systemText(const CachedApp& app) {
    const QString version = plainLine(app.minimumOsVersion);
    if (version.isEmpty()) return {};
    return (app.kind == kMacSoftwareKind ? tr("macOS %1 or later") : tr("iOS %1 or later"))
        .arg(version);
  }

  [[nodiscard]] QString versionText(const CachedApp& app) const {
    const QString version = plainLine(app.version);
    if (version.isEmpty() || !app.currentVersionReleaseDate) return version;
    const ViewWorld& view = world_.view;
    return tr("%1, %2").arg(version,
                            dateText(*app.currentVersionReleaseDate, view.clock.now(), view.zone));
  }

  /// The user's own language before others, else the first.
  static QString languagesText(const CachedApp& app) {
    if (app.languageCodes.empty()) return {};
    const QString own = QLocale().name().left(2).toUpper();
    QString shown = plainLine(app.languageCodes.front());
    for (const std::string& code : app.languageCodes)
      if (plainLine(code).toUpper() == own) shown = own;
    const QLocale::Language language = QLocale::codeToLanguage(shown.toLower());
    if (language != QLocale::AnyLanguage) shown = QLocale::languageToString(language);
    const std::size_t others = app.languageCodes.size() - 1;
    return others == 0 ? shown : tr("%1 and %2 more").arg(shown, QString::number(others));
  }

  PageWorld world_;
  ValueGrid* grid_;
};

}  // namespace

Block* makeInformationBlock(const QString& title, const PageWorld& world) {
  return new InformationBlock(title, world);
}

}  // namespace quillet
