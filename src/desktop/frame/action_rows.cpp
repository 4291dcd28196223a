// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QMainWindow>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/frame/action_context.h"
#include "desktop/frame/action_row.h"
#include "desktop/frame/app_links.h"
#include "desktop/frame/chosen_app.h"
#include "desktop/frame/collection_editor.h"
#include "desktop/frame/compare_editor.h"
#include "desktop/frame/content_pane.h"
#include "desktop/frame/frame_pane.h"
#include "desktop/frame/guide.h"
#include "desktop/frame/help_windows.h"
#include "desktop/frame/host_link.h"
#include "desktop/frame/library_files.h"
#include "desktop/frame/owned_editor.h"
#include "desktop/frame/pane_ring.h"
#include "desktop/frame/quick_open.h"
#include "desktop/frame/report_windows.h"
#include "desktop/frame/saved_search_editor.h"
#include "desktop/frame/scan_desk.h"
#include "desktop/frame/settings_windows.h"
#include "desktop/frame/shown_command.h"
#include "desktop/frame/snackbar.h"
#include "desktop/frame/text_size.h"
#include "desktop/frame/toolbar.h"
#include "desktop/frame/unread_finder.h"
#include "desktop/frame/watch_editor.h"
#include "desktop/look/widgets.h"
#include "desktop/models/recent_searches.h"
#include "desktop/page/app_page.h"
#include "desktop/page/block_table.h"
#include "desktop/page/reviews_window.h"

namespace quillet {

namespace {

using C = const ActionContext&;

template <SectionId id>
constexpr ActionRow goRow() {
  const SectionFace& face = faceOf(id);
  return {face.actionId,
          face.name,
          face.key,
          MenuId::view,
          false,
          [](C c) { return !c.content->isHidden() && c.guide->hasSection(id); },
          [](ActionContext& c) { c.guide->goTo(id); },
          ActionTick::choice,
          [](C c) { return c.guide->here().section == id; },
          "Sections"};
}

/// Nothing is where the library cannot be opened.
bool hasContent(C c) { return c.guide->section() != nullptr && !c.content->isHidden(); }
bool hasOne(C c) { return hasContent(c) && c.links->apps().size() == 1; }
bool hasSome(C c) { return hasContent(c) && !c.links->apps().empty(); }
bool isOpen(C c) { return c.host->isOpen(); }

QString scanText(C c) {
  return c.scans->isScanning() ? QCoreApplication::translate("Actions", "Stop Scan")
                               : QCoreApplication::translate("Actions", "Scan Applications Folder");
}

bool isFiltered(C c) {
  if (!hasContent(c)) return false;
  const RowView& view = c.guide->here().rows;
  const auto* query = std::get_if<StoreQuery>(&c.guide->here().what);
  const bool filtersStore = query != nullptr && query->request.filters != AppFilters();
  const auto* deals = std::get_if<DealPlace>(&c.guide->here().what);
  const bool filtersDeals = deals != nullptr && deals->minimumDrop > 0;
  return !view.text.isEmpty() || !view.chips.empty() || filtersStore || filtersDeals;
}

bool hasFilters(C c) { return hasContent(c) && c.guide->section()->filtersShown().has_value(); }
bool showsFilters(C c) {
  return hasContent(c) && c.guide->section()->filtersShown().value_or(false);
}

/// One of the presets of Search.
template <std::size_t preset>
constexpr ActionRow presetRow(std::string_view id, const char* text, const char* keys) {
  return {id,
          text,
          keys,
          MenuId::view,
          false,
          [](C c) { return hasContent(c) && c.search->canSearch(); },
          [](ActionContext& c) { c.search->toggle(searchPresets().at(preset)); },
          ActionTick::check,
          [](C c) { return c.search->holds(searchPresets().at(preset)); }};
}

/// The list of all reviews that is open beside the window; null where none is.
ReviewsWindow* openReviews(C c) {
  for (auto* each : c.window->findChildren<ReviewsWindow*>(Qt::FindDirectChildrenOnly))
    if (each->isVisible()) return each;
  return nullptr;
}

bool hasSaved(C c) { return hasContent(c) && c.saved->current() != 0; }

/// On the page of the app, wherever it is shown.
void goToBlock(ActionContext& c, std::string_view block) {
  c.guide->open();
  c.page->goTo(block);
}

bool hasDeveloper(C c) {
  return hasOne(c) && c.search->canSearch() && c.app->facts().developer.has_value();
}

void showDeveloper(ActionContext& c) {
  StoreQuery query;
  query.request.platform = c.app->facts().platform;
  query.request.country = c.app->app()->country;
  query.developer = c.app->facts().developer;
  c.search->goTo(std::move(query));
}

/// What a clipboard took nobody sees.
void sayCopied(ActionContext& c, const char* one, const char* many) {
  const auto count = static_cast<int>(c.links->apps().size());
  const QString text = QCoreApplication::translate("Actions", count == 1 ? one : many);
  c.snackbar->say(count == 1 ? text : text.arg(count));
}

void copyLinks(ActionContext& c) {
  c.links->copyLinks();
  sayCopied(c, QT_TRANSLATE_NOOP("Actions", "Copied the link."),
            QT_TRANSLATE_NOOP("Actions", "Copied %1 links."));
}

/// "Copy 3 Links"
QString copyText(C c) {
  const std::size_t count = hasContent(c) ? c.links->apps().size() : 0;
  if (count < 2) return QCoreApplication::translate("Actions", "Copy Link");
  return QCoreApplication::translate("Actions", "Copy %1 Links").arg(count);
}

bool hasCommand(C c) { return hasContent(c) && c.command->text().has_value(); }

void copyListCommand(ActionContext& c) {
  const auto text = c.command->text();
  if (!text) return;
  QGuiApplication::clipboard()->setText(*text);
  c.snackbar->say(QCoreApplication::translate("Actions", "Copied the command."));
}

/// Where no app is chosen, of the list that is shown.
void copyCommands(ActionContext& c) {
  if (c.links->apps().empty()) return copyListCommand(c);
  c.links->copyCommands();
  sayCopied(c, QT_TRANSLATE_NOOP("Actions", "Copied the command."),
            QT_TRANSLATE_NOOP("Actions", "Copied %1 commands."));
}

bool isInField(C c) {
  return c.focused != nullptr && c.focused->metaObject()->indexOfMethod("copy()") >= 0;
}

bool canChangeField(C c) { return isInField(c) && !c.focused->property("readOnly").toBool(); }

void inField(ActionContext& c, const char* act) {
  QMetaObject::invokeMethod(c.focused.data(), act);
}

/// Of what has the focus; of the list where that is nothing to select in.
void selectAll(ActionContext& c) {
  QWidget* focused = QApplication::focusWidget();
  if (focused == nullptr || focused->metaObject()->indexOfMethod("selectAll()") < 0) {
    c.guide->section()->takeFocus();
    focused = QApplication::focusWidget();
  }
  if (focused != nullptr && focused->metaObject()->indexOfMethod("selectAll()") >= 0)
    QMetaObject::invokeMethod(focused, "selectAll");
}

void find(ActionContext& c) {
  if (c.content->showsPageAlone()) c.guide->closePage();
  c.toolbar->goToField();
}

/// Where the list is the store's, a page that the user reads is what is to be new.
bool refreshesPage(C c) {
  const bool isRead = c.content->showsPageAlone() || PaneRing::hasFocus(*c.page);
  return isRead && c.page->app() &&
         faceOf(c.guide->here().section).refresh == SectionRefresh::asksStore;
}

void refresh(ActionContext& c) {
  if (refreshesPage(c)) {
    c.page->refresh();
  } else if (faceOf(c.guide->here().section).refresh == SectionRefresh::checksPrices) {
    c.host->checkPrices();
  } else {
    c.guide->section()->refresh();
  }
}

bool canRefresh(C c) {
  if (!hasContent(c) || !isOpen(c)) return false;
  return faceOf(c.guide->here().section).refresh != SectionRefresh::checksPrices ||
         c.host->canCheckPrices();
}

bool isFullScreen(C c) { return c.window->isFullScreen(); }
void toggleFullScreen(ActionContext& c) {
  c.window->setWindowState(c.window->windowState() ^ Qt::WindowFullScreen);
}

bool showsMenuBar(C c) { return c.frame->showsMenuBar(); }

/// "Undo Remove “Paperfold”".
QString joined(const char* verb, const QString& what) {
  const QString text = QCoreApplication::translate("Actions", verb);
  return what.isEmpty() ? text : text + u' ' + controlText(what);
}

bool hasCollection(C c) { return hasContent(c) && c.collections->current() != 0; }

void rename(ActionContext& c) {
  if (hasSaved(c)) return c.saved->rename(c.saved->current());
  c.collections->edit(c.collections->current());
}

/// A page in the list's place, or with the keyboard, is where its notes are edited.
bool editsNoteOnPage(C c) {
  return c.content->showsPageAlone() || PaneRing::hasFocus(*c.page) ||
         !c.guide->section()->canEditNote();
}

bool canEditNote(C c) { return hasOne(c) && (editsNoteOnPage(c) ? c.page->hasNotes() : true); }

void editNote(ActionContext& c) {
  if (editsNoteOnPage(c)) return c.page->editNote(c.collections->shown());
  c.guide->section()->editNote();
}

bool isOwnedChosen(C c) { return hasOne(c) && c.guide->here().section == SectionId::myApps; }

/// "Add 3 Apps to My Apps"
QString ownText(C c) {
  const std::size_t count = hasContent(c) ? c.links->apps().size() : 0;
  if (count < 2) return QCoreApplication::translate("Actions", "Add to My Apps");
  return QCoreApplication::translate("Actions", "Add %1 Apps to My Apps").arg(count);
}

bool canCompare(C c) {
  return hasSome(c) && c.guide->hasSection(SectionId::compare) &&
         c.guide->here().section != SectionId::compare;
}

/// "Add 3 Apps to Compare"
QString compareText(C c) {
  const std::size_t count = hasContent(c) ? c.links->apps().size() : 0;
  if (count < 2) return QCoreApplication::translate("Actions", "Add to Compare");
  return QCoreApplication::translate("Actions", "Add %1 Apps to Compare").arg(count);
}

/// What only the section that is seen can do.
bool canDo(C c, std::string_view action) {
  return hasContent(c) && !c.content->showsPageAlone() && c.guide->section()->canDo(action);
}

void copyComparison(ActionContext& c) {
  c.guide->section()->perform("copy-comparison");
  c.snackbar->say(QCoreApplication::translate("Actions", "Copied the comparison."));
}

bool canCopy(C c) { return isInField(c) || hasSome(c); }

/// What its key copies: of a field the text, of a table the cell, of a list what is chosen.
void copy(ActionContext& c) {
  if (isInField(c)) return inField(c, "copy");
  const bool isCell = canDo(c, "copy-cell") && c.guide->section()->view()->isAncestorOf(c.focused);
  isCell ? c.guide->section()->perform("copy-cell") : copyLinks(c);
}

/// The keyboard is where a collection is shown.
bool deletesCollection(C c) {
  return hasContent(c) && c.collections->shown() != 0 && PaneRing::hasFocus(*c.sidebar);
}

bool marks(C c) { return hasContent(c) && !c.guide->section()->markingText().isEmpty(); }

bool canMark(C c) { return marks(c) && c.guide->section()->marking().has_value(); }

void markChosen(ActionContext& c) {
  if (auto marking = c.guide->section()->marking()) c.edits->perform(*std::move(marking));
}

QString markText(C c) {
  return marks(c) ? c.guide->section()->markingText()
                  : QCoreApplication::translate("Actions", "Mark as Read");
}

bool canWatchAtPrice(C c) { return hasSome(c) && c.guide->section()->targetWatch().has_value(); }

QString targetText(C c) {
  return hasSome(c) && !hasOne(c)
             ? QCoreApplication::translate("Actions", "Watch with These Prices as Targets")
             : QCoreApplication::translate("Actions", "Watch with This Price as Target");
}

void watchAtPrice(ActionContext& c) {
  if (auto edit = c.guide->section()->targetWatch()) c.edits->perform(*std::move(edit));
}

void markAllRead(ActionContext& c) {
  const auto text = [](const char* each) { return QCoreApplication::translate("Actions", each); };
  c.edits->perform({text(QT_TRANSLATE_NOOP("Actions", "Mark All as Read")),
                    text(QT_TRANSLATE_NOOP("Actions", "Marked all alerts as read.")),
                    text(QT_TRANSLATE_NOOP("Actions", "The alerts were not marked.")),
                    markingAllAlertsRead()});
}

/// What a search found stays: there is only the search to delete.
bool canDelete(C c) {
  return hasSaved(c) || deletesCollection(c) ||
         (hasContent(c) && c.guide->section()->removal().has_value());
}

void deleteChosen(ActionContext& c) {
  if (hasSaved(c)) return c.saved->remove(c.saved->current());
  if (deletesCollection(c)) return c.collections->remove(c.collections->shown());
  if (auto removal = c.guide->section()->removal()) c.edits->perform(*std::move(removal));
}

QString deleteText(C c) {
  if (deletesCollection(c)) return QCoreApplication::translate("Sections", "Delete Collection");
  const QString text = hasContent(c) ? c.guide->section()->removalText() : QString();
  return text.isEmpty() ? QCoreApplication::translate("Actions", "Delete") : text;
}

/// Takes away what was searched for, or puts it back behind what was searched for since.
std::function<void()> takingSearches(StateFile& state) {
  return [&state, taken = std::optional<QJsonArray>()]() mutable {
    const QString key = QString::fromLatin1(kRecentSearchesKey);
    const QJsonArray present = state.value(key).toArray();
    state.setValue(key, taken ? withOlderSearches(present, *taken) : QJsonArray());
    taken = taken ? std::nullopt : std::optional(present);
  };
}

/// The views of all apps, and what was searched for: an undo brings back both.
void clearHistory(ActionContext& c) {
  const auto tr = [](const char* text) { return QCoreApplication::translate("Actions", text); };
  LibraryEdit edit{tr("Clear History"), tr("Cleared the history."),
                   tr("The history was not cleared."), forgettingAllViews()};
  StateFile& state = c.settings->state();
  if (!state.value(QString::fromLatin1(kRecentSearchesKey)).toArray().isEmpty()) {
    edit.step = together({edit.step, changingNothing()});
    edit.beside = takingSearches(state);
  }
  c.edits->perform(std::move(edit));
}

/// An action's ID as a part of a type.
template <std::size_t size>
struct ActionId {
  constexpr ActionId(const char (&text)[size]) { std::copy_n(text, size, characters); }
  char characters[size]{};
};

/// Of what only one section can do.
template <ActionId id>
constexpr ActionRow sectionRow(const char* text, MenuId menu, bool startsGroup = false,
                               const char* keys = "") {
  return {id.characters,
          text,
          keys,
          menu,
          startsGroup,
          [](C c) { return canDo(c, id.characters); },
          [](ActionContext& c) { c.guide->section()->perform(id.characters); }};
}

/// The window says what comes of it.
void checkForUpdates(ActionContext& c) {
  c.settings->showUpdates();
  c.settings->updates()->look();
}

#define TEXT(text) QT_TRANSLATE_NOOP("Actions", text)

constexpr std::array kRows{
    ActionRow{"new-collection", TEXT("New Collection…"), "Ctrl+N", MenuId::file, false, hasContent,
              [](ActionContext& c) { c.collections->make(); }},
    ActionRow{"save-search", TEXT("Save Search…"), "Ctrl+S", MenuId::file, false,
              [](C c) { return hasContent(c) && c.saved->canSave(); },
              [](ActionContext& c) { c.saved->save(); }},
    ActionRow{"import-library", TEXT("Import Library…"), "Ctrl+O", MenuId::file, true, hasContent,
              [](ActionContext& c) { c.files->askForImport(); }},
    ActionRow{"export-library", TEXT("Export Library…"), "Ctrl+Shift+S", MenuId::file, false,
              hasContent, [](ActionContext& c) { c.files->askForExport(ExportFormat::json); }},
    ActionRow{"export-csv", TEXT("Export as CSV…"), "", MenuId::file, false, hasContent,
              [](ActionContext& c) { c.files->askForExport(ExportFormat::csv); }},
    ActionRow{"export-collection", TEXT("Export Collection…"), "", MenuId::file, false,
              [](C c) { return hasCollection(c); },
              [](ActionContext& c) {
                c.files->askForExport(ExportFormat::json, c.collections->current());
              }},
    ActionRow{"export-reviews", TEXT("Export Reviews…"), "", MenuId::file, false,
              [](C c) { return openReviews(c) != nullptr && openReviews(c)->canExport(); },
              [](ActionContext& c) { openReviews(c)->exportReviews(); }},
    sectionRow<"export-comparison-md">(TEXT("Export Comparison as Markdown…"), MenuId::file, true),
    sectionRow<"export-comparison-html">(TEXT("Export Comparison as HTML…"), MenuId::file),
    sectionRow<"export-comparison-csv">(TEXT("Export Comparison as CSV…"), MenuId::file),
    ActionRow{"export-report", TEXT("Export App Report…"), "Ctrl+E", MenuId::file, true,
              [](C c) { return hasOne(c) && isOpen(c); },
              [](ActionContext& c) { c.reports->show(c.links->apps().front()); }},
    ActionRow{"print", TEXT("Print…"), "Ctrl+P", MenuId::file, false,
              [](C c) { return hasOne(c) && isOpen(c); },
              [](ActionContext& c) { c.reports->print(c.links->apps().front()); }},
    ActionRow{"close", TEXT("Close Window"), "Ctrl+W", MenuId::file, true, nullptr,
              [](ActionContext& c) { c.window->close(); }},
    ActionRow{"quit", TEXT("Quit Quillet"), "Ctrl+Q", MenuId::file, false, nullptr,
              [](ActionContext&) { QCoreApplication::quit(); }},

    ActionRow{"undo", TEXT("Undo"), "Ctrl+Z", MenuId::edit, false,
              [](C c) { return !c.edits->undoName().isEmpty(); },
              [](ActionContext& c) { c.edits->undo(); }, ActionTick::none, nullptr, "Actions",
              [](C c) { return joined(TEXT("Undo"), c.edits->undoName()); }},
    ActionRow{"redo", TEXT("Redo"), "Ctrl+Shift+Z", MenuId::edit, false,
              [](C c) { return !c.edits->redoName().isEmpty(); },
              [](ActionContext& c) { c.edits->redo(); }, ActionTick::none, nullptr, "Actions",
              [](C c) { return joined(TEXT("Redo"), c.edits->redoName()); }},
    ActionRow{"cut", TEXT("Cut"), "Ctrl+X", MenuId::edit, true, canChangeField,
              [](ActionContext& c) { inField(c, "cut"); }},
    ActionRow{"copy", TEXT("Copy"), "Ctrl+C", MenuId::edit, false, canCopy, copy},
    ActionRow{"paste", TEXT("Paste"), "Ctrl+V", MenuId::edit, false, canChangeField,
              [](ActionContext& c) { inField(c, "paste"); }},
    ActionRow{"select-all", TEXT("Select All"), "Ctrl+A", MenuId::edit, false, hasContent,
              selectAll},
    ActionRow{"rename", TEXT("Rename…"), "F2", MenuId::edit, false,
              [](C c) { return hasSaved(c) || hasCollection(c); }, rename},
    ActionRow{"duplicate-collection", TEXT("Duplicate Collection"), "", MenuId::edit, false,
              hasCollection,
              [](ActionContext& c) { c.collections->duplicate(c.collections->current()); }},
    ActionRow{"compare-collection", TEXT("Compare First 8"), "", MenuId::edit, false,
              [](C c) { return hasContent(c) && c.compare->canCompareShown(); },
              [](ActionContext& c) { c.compare->compareShown(); }},
    ActionRow{"delete", TEXT("Delete"), "Del", MenuId::edit, false, canDelete, deleteChosen,
              ActionTick::none, nullptr, "Actions", deleteText},
    ActionRow{"edit-note", TEXT("Edit Note…"), "Ctrl+I", MenuId::edit, false, canEditNote,
              editNote},
    ActionRow{"edit-details", TEXT("Edit Details…"), "", MenuId::edit, false, isOwnedChosen,
              [](ActionContext& c) { c.owned->editDetails(c.links->apps().front()); }},
    ActionRow{"copy-link", TEXT("Copy Link"), "", MenuId::edit, true, hasSome, copyLinks,
              ActionTick::none, nullptr, "Actions", copyText},
    ActionRow{"copy-command", TEXT("Copy as Command"), "Ctrl+Shift+C", MenuId::edit, false,
              [](C c) { return hasSome(c) || hasCommand(c); }, copyCommands},
    ActionRow{"copy-list-command", TEXT("Copy List as Command"), "", MenuId::edit, false,
              hasCommand, copyListCommand},
    sectionRow<"copy-cell">(TEXT("Copy Cell"), MenuId::edit),
    ActionRow{"copy-comparison", TEXT("Copy as Markdown"), "", MenuId::edit, false,
              [](C c) { return canDo(c, "copy-comparison"); }, copyComparison},
    sectionRow<"move-column-left">(TEXT("Move Column Left"), MenuId::edit, false,
                                   "Ctrl+Shift+Left"),
    sectionRow<"move-column-right">(TEXT("Move Column Right"), MenuId::edit, false,
                                    "Ctrl+Shift+Right"),
    ActionRow{"find", TEXT("Find"), "Ctrl+F", MenuId::edit, true, hasContent, find},
    ActionRow{"settings", TEXT("Settings…"), "Ctrl+,", MenuId::edit, true, nullptr,
              [](ActionContext& c) { c.settings->showSettings(); }},

    goRow<SectionId::search>(),
    goRow<SectionId::charts>(),
    goRow<SectionId::deals>(),
    goRow<SectionId::watchlist>(),
    goRow<SectionId::alerts>(),
    goRow<SectionId::collections>(),
    goRow<SectionId::myApps>(),
    goRow<SectionId::history>(),
    goRow<SectionId::compare>(),
    ActionRow{"sort-by", TEXT("Sort By"), "", MenuId::view, true, nullptr, nullptr},
    ActionRow{"chart", TEXT("Chart"), "", MenuId::view, false, nullptr, nullptr},
    ActionRow{"platform", TEXT("Platform"), "", MenuId::view, false, nullptr, nullptr},
    ActionRow{"storefront", TEXT("Storefront"), "", MenuId::view, false, nullptr, nullptr},
    ActionRow{"category", TEXT("Category"), "", MenuId::view, false, nullptr, nullptr},
    ActionRow{"upkeep", TEXT("Upkeep of My Apps"), "", MenuId::view, false,
              [](C c) { return canDo(c, "show-upkeep") || canDo(c, "show-list"); },
              [](ActionContext& c) {
                c.guide->section()->perform(canDo(c, "show-list") ? "show-list" : "show-upkeep");
              },
              ActionTick::check, [](C c) { return canDo(c, "show-list"); }},
    ActionRow{"filters", TEXT("Filters"), "Ctrl+Shift+F", MenuId::view, false, hasFilters,
              [](ActionContext& c) { c.guide->section()->toggleFilters(); }, ActionTick::check,
              showsFilters},
    ActionRow{"clear-filters", TEXT("Clear Filters"), "", MenuId::view, false, isFiltered,
              [](ActionContext& c) { c.guide->clearFilters(); }},
    presetRow<0>("buy-once-maintained", TEXT("Buy Once, Still Maintained"), "Ctrl+Shift+B"),
    ActionRow{"sidebar", TEXT("Sidebar"), "F9", MenuId::view, true, nullptr,
              [](ActionContext& c) { c.frame->toggleSidebar(); }, ActionTick::check,
              [](C c) { return c.frame->showsSidebar(); }},
    ActionRow{"page-beside", TEXT("App Page Beside List"), "Ctrl+F9", MenuId::view, false,
              [](C c) { return hasContent(c) && c.content->hasRoomForBoth(); },
              [](ActionContext& c) { c.content->toggleBeside(); }, ActionTick::check,
              [](C c) { return c.content->isBeside(); }},
    ActionRow{"arrange-page", TEXT("Arrange App Page…"), "", MenuId::view, false, nullptr,
              [](ActionContext& c) { c.page->arrangeBlocks(); }},
    ActionRow{"menu-bar", TEXT("Menu Bar"), "Ctrl+M", MenuId::view, false, nullptr,
              [](ActionContext& c) { c.frame->toggleMenuBar(); }, ActionTick::check, showsMenuBar},
    ActionRow{"larger-text", TEXT("Larger Text"), "Ctrl++; Ctrl+=", MenuId::view, true,
              [](C c) { return c.text->canGrow(); }, [](ActionContext& c) { c.text->grow(); }},
    ActionRow{"smaller-text", TEXT("Smaller Text"), "Ctrl+-", MenuId::view, false,
              [](C c) { return c.text->canShrink(); }, [](ActionContext& c) { c.text->shrink(); }},
    ActionRow{"normal-text", TEXT("Normal Text"), "Ctrl+0", MenuId::view, false,
              [](C c) { return !c.text->isNormal(); }, [](ActionContext& c) { c.text->reset(); }},
    ActionRow{"full-screen", TEXT("Full Screen"), "F11", MenuId::view, true, nullptr,
              toggleFullScreen, ActionTick::check, isFullScreen},

    ActionRow{"back", TEXT("Back"), "Alt+Left", MenuId::go, false,
              [](C c) { return hasContent(c) && c.guide->canGoBack(); },
              [](ActionContext& c) { c.guide->back(); }},
    ActionRow{"forward", TEXT("Forward"), "Alt+Right", MenuId::go, false,
              [](C c) { return hasContent(c) && c.guide->canGoForward(); },
              [](ActionContext& c) { c.guide->forward(); }},
    ActionRow{"go-to-app", TEXT("Go to App…"), "Ctrl+K", MenuId::go, true, isOpen,
              [](ActionContext& c) { c.quickOpen->open(); }},
    ActionRow{"next-unread", TEXT("Next Unread Alert"), "Ctrl+U", MenuId::go, false,
              [](C c) { return c.unread->count() > 0; },
              [](ActionContext& c) { c.unread->goToNext(); }},
    ActionRow{"previous-app", TEXT("Previous App"), "Ctrl+Up", MenuId::go, true,
              [](C c) { return hasContent(c) && c.guide->canChooseBy(-1); },
              [](ActionContext& c) { c.guide->chooseBy(-1); }},
    ActionRow{"next-app", TEXT("Next App"), "Ctrl+Down", MenuId::go, false,
              [](C c) { return hasContent(c) && c.guide->canChooseBy(1); },
              [](ActionContext& c) { c.guide->chooseBy(1); }},

    ActionRow{"open", TEXT("Open"), "", MenuId::app, false, hasOne,
              [](ActionContext& c) { c.guide->open(); }},
    ActionRow{"open-in-store", TEXT("Open in App Store"), "", MenuId::app, false, hasOne,
              [](ActionContext& c) { c.links->openInStore(); }},
    ActionRow{"developer-apps", TEXT("Developer's Apps"), "", MenuId::app, false, hasDeveloper,
              showDeveloper},
    ActionRow{"developer-website", TEXT("Developer's Website"), "", MenuId::app, false,
              [](C c) { return hasOne(c) && !c.app->facts().website.empty(); },
              [](ActionContext& c) { c.links->openWebsite(c.app->facts().website); }},
    ActionRow{"watch", TEXT("Watch"), "Ctrl+D", MenuId::app, true,
              [](C c) { return hasSome(c) && c.watch->canToggle(); },
              [](ActionContext& c) { c.watch->toggle(); }, ActionTick::none, nullptr, "Actions",
              [](C c) { return c.watch->toggleText(); }},
    ActionRow{"watch-options", TEXT("Watch Options…"), "Ctrl+Shift+D", MenuId::app, false,
              [](C c) { return hasSome(c) && c.watch->canChange(); },
              [](ActionContext& c) { c.watch->showOptions(); }},
    ActionRow{"watch-at-price", TEXT("Watch with This Price as Target"), "", MenuId::app, false,
              canWatchAtPrice, watchAtPrice, ActionTick::none, nullptr, "Actions", targetText},
    ActionRow{"mute-alerts", TEXT("Mute Alerts"), "", MenuId::app, false, nullptr, nullptr},
    ActionRow{"add-to-collection", TEXT("Add to Collection"), "Ctrl+Shift+L", MenuId::app, true,
              hasSome, [](ActionContext& c) { c.collections->choose(c.links->named()); }},
    ActionRow{"move-to-collection", TEXT("Move to"), "", MenuId::app, false, nullptr, nullptr},
    ActionRow{"add-to-compare", TEXT("Add to Compare"), "Ctrl+T", MenuId::app, false, canCompare,
              [](ActionContext& c) { c.compare->add(c.links->named()); }, ActionTick::none, nullptr,
              "Actions", compareText},
    ActionRow{"compare-another", TEXT("Add App to Compare…"), "Ctrl+Shift+T", MenuId::app, false,
              [](C c) {
                return hasContent(c) && isOpen(c) && c.guide->hasSection(SectionId::compare) &&
                       c.compare->hasRoom();
              },
              [](ActionContext& c) { c.compare->find(); }},
    ActionRow{"add-to-my-apps", TEXT("Add to My Apps"), "Ctrl+Shift+O", MenuId::app, false,
              [](C c) { return hasSome(c) && c.guide->here().section != SectionId::myApps; },
              [](ActionContext& c) { c.owned->add(c.links->named()); }, ActionTick::none, nullptr,
              "Actions", ownText},
    sectionRow<"find-replacement">(TEXT("Find a Replacement"), MenuId::app),
    sectionRow<"skip-version">(TEXT("Skip This Version"), MenuId::app),
    sectionRow<"unskip-version">(TEXT("Show Skipped Update"), MenuId::app),
    ActionRow{"compare-storefronts", TEXT("Compare Storefronts"), "", MenuId::app, true,
              [](C c) { return hasOne(c) && c.page->shows(kStorefrontsBlock); },
              [](ActionContext& c) { goToBlock(c, kStorefrontsBlock); }},
    ActionRow{"rank-history", TEXT("Show Rank History"), "", MenuId::app, false,
              [](C c) { return hasOne(c) && c.page->shows(kRanksBlock); },
              [](ActionContext& c) { goToBlock(c, kRanksBlock); }},
    ActionRow{"show-installed", TEXT("Show Installed Copy"), "", MenuId::app, false,
              [](C c) { return hasOne(c) && !c.app->copy().empty(); },
              [](ActionContext& c) { c.links->showInFiles(c.app->copy()); }},
    ActionRow{"refresh", TEXT("Refresh"), "F5; Ctrl+R", MenuId::app, true, canRefresh, refresh},

    ActionRow{"check-prices", TEXT("Check Prices Now"), "Ctrl+Shift+R", MenuId::library, false,
              [](C c) { return c.host->canCheckPrices(); },
              [](ActionContext& c) { c.host->checkPrices(); }},
    ActionRow{"scan-applications", TEXT("Scan Applications Folder"), "", MenuId::library, false,
              isOpen, [](ActionContext& c) { c.scans->scan(); }, ActionTick::none, nullptr,
              "Actions", scanText},
    ActionRow{"choose-applications", TEXT("Scan Another Folder…"), "", MenuId::library, false,
              [](C c) { return isOpen(c) && !c.scans->isScanning(); },
              [](ActionContext& c) { c.scans->chooseFolder(); }},
    ActionRow{"add-by-hand", TEXT("Add App by Hand…"), "", MenuId::library, false, hasContent,
              [](ActionContext& c) { c.owned->find(); }},
    ActionRow{"check-price-data", TEXT("Check for Price Data"), "", MenuId::library, false,
              [](C c) { return c.host->canCheckPriceData(); },
              [](ActionContext& c) { c.host->checkPriceData(); }},
    ActionRow{"mark-read", TEXT("Mark as Read"), "", MenuId::library, true, canMark, markChosen,
              ActionTick::none, nullptr, "Actions", markText},
    ActionRow{"mark-all-read", TEXT("Mark All as Read"), "Ctrl+Shift+U", MenuId::library, false,
              [](C c) { return isOpen(c) && c.unread->count() > 0; }, markAllRead},
    ActionRow{"clear-history", TEXT("Clear History"), "", MenuId::library, true, isOpen,
              clearHistory},
    ActionRow{"notify", TEXT("Allow Notifications"), "", MenuId::library, true,
              [](C c) { return c.host->canAllowNotifications(); },
              [](ActionContext& c) { c.host->allowNotifications(); }},

    ActionRow{"install-tool", TEXT("Install Command-Line Tool…"), "", MenuId::tools, false,
              [](C c) { return c.settings->hasTool(); },
              [](ActionContext& c) { c.settings->showTool(); }},
    ActionRow{"install-skill", TEXT("Install Agent Skill…"), "", MenuId::tools, false,
              [](C c) { return c.settings->hasSkill(); },
              [](ActionContext& c) { c.settings->showSkill(); }},
    ActionRow{"check-updates", TEXT("Check for Updates…"), "", MenuId::tools, true,
              [](C c) { return c.settings->updates() != nullptr; }, checkForUpdates},
    ActionRow{"diagnostics", TEXT("Diagnostics…"), "", MenuId::tools, false,
              [](C c) { return c.settings->hasDiagnostics(); },
              [](ActionContext& c) { c.settings->showDiagnostics(); }},

    ActionRow{"help", TEXT("Quillet Help"), "F1", MenuId::help, false, nullptr,
              [](ActionContext& c) { c.help->showGuide(); }},
    ActionRow{"shortcuts", TEXT("Keyboard Shortcuts"), "Ctrl+?", MenuId::help, false, nullptr,
              [](ActionContext& c) { c.help->showShortcuts(); }},
    ActionRow{"welcome", TEXT("Welcome…"), "", MenuId::help, false, nullptr,
              [](ActionContext& c) { c.settings->showWelcome(); }},
    ActionRow{"about", TEXT("About Quillet"), "", MenuId::help, true, nullptr,
              [](ActionContext& c) { c.help->showAbout(); }},

    ActionRow{"next-pane", TEXT("Next Pane"), "F6", MenuId::none, false, nullptr,
              [](ActionContext& c) { c.panes->goBy(1); }},
    ActionRow{"previous-pane", TEXT("Previous Pane"), "Shift+F6", MenuId::none, false, nullptr,
              [](ActionContext& c) { c.panes->goBy(-1); }},
    ActionRow{"leave", TEXT("From the Page to the List, Then to the Field"), "Esc", MenuId::none,
              false, nullptr, [](ActionContext& c) { c.panes->leave(); }},
};

#undef TEXT

}  // namespace

std::span<const ActionRow> actionRows() { return kRows; }

}  // namespace quillet
