// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QLocale>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <map>

#include "analysis/app_build.h"
#include "base/urls.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/store_question.h"
#include "desktop/models/time_words.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_text.h"
#include "desktop/page/value_grid.h"
#include "store/records/itunes_app.h"

namespace quillet {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 7> kDevices{{
    {"mac", "Mac"},
    {"iphone", "iPhone"},
    {"ipad", "iPad"},
    {"ipod", "iPod touch"},
    {"tvos", "Apple TV"},
    {"watch", "Apple Watch"},
    {"realitydevice", "Apple Vision"},
}};

/// One that is not known is called what the store calls it.
QString deviceText(const std::string& family) {
  const auto* known = std::ranges::find(kDevices, plainLine(family).toLower().toStdString(),
                                        &std::pair<std::string_view, std::string_view>::first);
  if (known == kDevices.end()) return plainLine(family);
  return QString::fromUtf8(known->second.data(), static_cast<qsizetype>(known->second.size()));
}

QString devicesText(const std::vector<std::string>& families) {
  QStringList texts;
  for (const std::string& family : families) texts << deviceText(family);
  texts.removeAll(QString());
  return texts.join(QStringLiteral(", "));
}

QString languageText(const std::string& code) {
  const QLocale::Language language = QLocale::codeToLanguage(plainLine(code).toLower());
  return language == QLocale::AnyLanguage ? plainLine(code) : QLocale::languageToString(language);
}

QString webText(const std::string& link) {
  QString host = QUrl(QString::fromStdString(link)).host();
  if (host.startsWith(QLatin1String("www."))) host = host.mid(4);
  return plainLine(host.toStdString());
}

class InformationBlock : public Block {
 public:
  InformationBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        question_(world.view.store, world.view.clock),
        grid_(new ValueGrid(this)),
        onMac_(new PageText(
            {.type = kFactType, .ink = Token::secondary, .lineHeight = 16, .use = TextUse::copy},
            this)) {
    content().addWidget(grid_);
    content().addWidget(onMac_);
    onMac_->hide();
    connect(grid_, &ValueGrid::opens, this,
            [this](const std::string& link) { world_.view.prompts.openLink(link); });
  }

  bool fill(const PageFacts& known) override {
    if (known.app != app_) {
      app_ = known.app;
      question_.forget();
      onMac_->show({});
    }
    isForPhones_ = known.cached && known.cached->kind && *known.cached->kind != kMacSoftwareKind;
    std::vector<NamedValue> values;
    if (known.cached) values = valuesOf(known);
    if (!known.cached && known.owned)
      values.push_back({tr("Bundle ID"), plainLine(known.owned->bundleId)});
    values.push_back({tr("Track ID"), QString::number(known.app.trackId)});
    if (known.cached) addLink(values, tr("Website"), known.cached->sellerUrl);
    addLink(values, tr("Store page"), known.link);
    return grid_->show(std::move(values));
  }

  /// Whether it runs on a Mac is an aside: where the store does not tell, nothing is said.
  void approach(Freshness /*freshness*/) override {
    if (!isForPhones_) return;
    question_.ask(
        [app = app_](QueryServices services, const QueryCall& call) {
          return services.catalog.macCompatibilityFlags({app.trackId}, app.country, call.context);
        },
        [this](const std::map<std::int64_t, bool>& flags) {
          const auto flag = flags.find(app_.trackId);
          const bool runs = flag != flags.end() && flag->second;
          onMac_->show(runs ? tr("This iPhone app runs on Macs with Apple silicon.") : QString());
        });
  }

 private:
  [[nodiscard]] std::vector<NamedValue> valuesOf(const PageFacts& known) const {
    const CachedApp& app = *known.cached;
    std::vector<NamedValue> values{{tr("Size"), sizeText(app)},
                                   {tr("Category"), plainLine(app.primaryGenreName)},
                                   {tr("Age rating"), plainLine(app.contentAdvisoryRating)},
                                   languages(app),
                                   {tr("Needs"), systemText(known)},
                                   {tr("Built for"), buildText(known)},
                                   {tr("Works on"), devicesText(app.deviceFamilies)},
                                   {tr("Version"), versionText(app)},
                                   {tr("Bundle ID"), plainLine(app.bundleId)}};
    return values;
  }

  static void addLink(std::vector<NamedValue>& values, const QString& name,
                      const std::optional<std::string>& link) {
    if (isWebAddress(link.value_or(""))) values.push_back({name, webText(*link), {}, *link});
  }

  [[nodiscard]] QString sizeText(const CachedApp& app) const {
    if (app.fileSizeBytes.value_or(0) <= 0) return {};
    return QString::fromStdString(world_.formats->byteCount(*app.fileSizeBytes));
  }

  static QString systemText(const PageFacts& known) {
    const QString version = plainLine(known.cached->minimumOsVersion);
    if (version.isEmpty()) return {};
    return (tellsOfMac(known) ? tr("macOS %1 or later") : tr("iOS %1 or later")).arg(version);
  }

  /// Whether the facts are of a Mac build, whose app may have a record of another one.
  static bool tellsOfMac(const PageFacts& known) {
    if (known.store) return known.store->app.platform == Platform::mac;
    // Of others it is not known what they are compiled for.
    return known.cached->kind == kMacSoftwareKind || known.cached->needsRosetta.has_value();
  }

  /// Of a Mac build. Before the catalog told, what the library kept of it.
  static QString buildText(const PageFacts& known) {
    if (known.store && known.store->app.platform == Platform::mac) {
      if (const auto text = architectureText(known.store->app.build))
        return QString::fromStdString(*text);
    }
    PlatformInfo kept;
    kept.requiresRosetta = known.cached->needsRosetta;
    return QString::fromStdString(architectureText(kept).value_or(""));
  }

  [[nodiscard]] QString versionText(const CachedApp& app) const {
    const QString version = plainLine(app.version);
    if (version.isEmpty() || !app.currentVersionReleaseDate) return version;
    const ViewWorld& view = world_.view;
    return tr("%1, %2").arg(version,
                            dateText(*app.currentVersionReleaseDate, view.clock.now(), view.zone));
  }

  /// The user's own language before others, else the first.
  static NamedValue languages(const CachedApp& app) {
    NamedValue value{tr("Languages"), {}};
    QStringList all;
    for (const std::string& code : app.languageCodes) all << languageText(code);
    if (all.isEmpty()) return value;
    const QString own = QLocale::languageToString(QLocale().language());
    const QString shown = all.contains(own) ? own : all.front();
    value.value =
        all.size() == 1 ? shown : tr("%1 and %2 more").arg(shown, QString::number(all.size() - 1));
    if (all.size() > 1) value.whole = all.join(QStringLiteral(", "));
    return value;
  }

  PageWorld world_;
  AppKey app_;
  bool isForPhones_ = false;
  StoreQuestion question_;
  ValueGrid* grid_;
  PageText* onMac_;
};

}  // namespace

Block* makeInformationBlock(const QString& title, const PageWorld& world) {
  return new InformationBlock(title, world);
}

}  // namespace quillet
