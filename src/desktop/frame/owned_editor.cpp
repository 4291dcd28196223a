// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/owned_editor.h"

#include "analysis/app_build.h"
#include "base/errors.h"
#include "desktop/frame/owned_details_dialog.h"
#include "desktop/frame/owned_finder.h"
#include "desktop/models/app_listing.h"
#include "desktop/models/row_parts.h"
#include "library/known_apps.h"

namespace quillet {

namespace {

/// With what its storefront asks for; empty where that is not known.
struct Owned {
  OwnedApp app;
  std::string currency;
};

std::optional<Owned> readOwned(SQLite::Database& database, const AppKey& app) {
  const std::vector<OwnedApp> owned = ownedAppsOf(database, {app});
  if (owned.empty()) return {};
  std::string currency;
  for (const KnownApp& known : knownApps(database, {app}))
    currency = known.record.currency.value_or("");
  return Owned{owned.front(), currency};
}

}  // namespace

OwnedEditor::OwnedEditor(const ViewWorld& world, QWidget& window)
    : world_(world),
      window_(window),
      finder_(new OwnedFinder(world.library, window, world.storefront)),
      question_(world.store, world.clock) {
  connect(finder_, &OwnedFinder::chosen, this,
          [this](const ListedApp& app) { add({{app.app, nameLine(app.name)}}); });
  connect(finder_, &OwnedFinder::named, this, &OwnedEditor::lookUp);
  connect(finder_, &OwnedFinder::searched, this, &OwnedEditor::searched);
  connect(&question_, &StoreQuestion::stateChanged, this, &OwnedEditor::tellQuestion);
}

void OwnedEditor::find() { finder_->open(); }

void OwnedEditor::lookUp(const NamedApp& named) {
  question_.ask([named](QueryServices services,
                        QueryCall call) { return findApp(named, services, std::move(call)); },
                [this, country = named.country](std::optional<ITunesApp> app) {
                  take(country, std::move(app));
                });
}

void OwnedEditor::take(const std::string& country, std::optional<ITunesApp> app) {
  if (!app) {
    Q_EMIT said(tr("The %1 storefront has no such app.").arg(QString::fromStdString(country)));
    return;
  }
  const NamedKey named{{app->trackId, country}, nameLine(app->trackName)};
  const Platform platform = ownPlatform(*app);
  world_.records.keep(named.app, {*std::move(app), platform, world_.clock.now()});
  add({named});
}

/// An answer says for itself that it came.
void OwnedEditor::tellQuestion() {
  const ListState& state = question_.state();
  if (std::holds_alternative<Ready>(state)) return;
  if (std::holds_alternative<Loading>(state)) return Q_EMIT said(tr("Looking it up…"));
  if (std::holds_alternative<Offline>(state))
    return Q_EMIT failed(tr("You're offline. Nothing was added."));
  const auto strip = stripOf(state, world_.clock.now());
  if (!strip) return;
  if (strip->action == StripAction::tryAgain) {
    Q_EMIT failed(tr("Nothing was added. %1").arg(strip->text));
  } else {
    Q_EMIT said(strip->text);
  }
}

void OwnedEditor::add(const std::vector<NamedKey>& apps) {
  if (apps.empty()) return;
  const QString what = phraseOf(apps);
  world_.edits.perform({tr("Add %1 to My Apps").arg(what), tr("Added %1 to My Apps.").arg(what),
                        tr("%1: not added to My Apps.").arg(what),
                        owningByHand(appsToList(apps, world_)),
                        tr("My Apps has %1 already.").arg(what)});
}

void OwnedEditor::editDetails(const AppKey& app) { detach(ask(this, app), "An app's details"); }

Task<> OwnedEditor::ask(QPointer<OwnedEditor> editor, AppKey app) {
  std::optional<Owned> owned;
  QString why;
  try {
    owned = co_await editor->world_.library.read(readOwned, app);
  } catch (const DatabaseError& error) {
    why = QString::fromUtf8(error.what());
  }
  if (!editor) co_return;
  if (!why.isEmpty()) co_return editor->said(tr("The details cannot be read now. %1").arg(why));
  if (owned) editor->show(owned->app, owned->currency);
}

void OwnedEditor::show(const OwnedApp& app, const std::string& currency) {
  auto* dialog = new OwnedDetailsDialog(app, currency, &window_);
  const QString name = nameLine(app.name);
  const OwnedDetails before{app.priceWhenAdded, app.currency, app.trackViewUrl, app.skippedVersion};
  connect(dialog, &QDialog::accepted, this, [this, dialog, name, before, key = keyOf(app)] {
    const OwnedDetails details = dialog->details();
    if (details == before) return;
    world_.edits.perform(
        {tr("Edit Details of “%1”").arg(name), tr("Changed the details of “%1”.").arg(name),
         tr("The details of “%1” were not changed.").arg(name), settingOwned({{key, details}})});
  });
  dialog->open();
}

}  // namespace quillet
