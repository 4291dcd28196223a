// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "desktop/models/app_texts.h"
#include "desktop/models/list_state.h"
#include "desktop/models/place.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/row_table.h"
#include "desktop/models/view_world.h"

class QWidget;

namespace quillet {

class RowFilterModel;

/// Narrower, a list is not shown beside a page.
inline constexpr int kLeastListWidth = 380;

/// What of a list is chosen among a few values, which the window has in its menus, too.
enum class Selector { chart, platform, storefront, category };

/// Where a section's tools stand: in the place of the title and of the field that finds rows, or
/// between them.
enum class ToolsPlace { instead, beside };

struct SelectorChoice {
  std::string id;
  QString text;
  bool isChosen = false;
  bool startsGroup = false;  ///< of several
  QString whyNot = {};       ///< it cannot be chosen, for this reason; empty where it can

  friend bool operator==(const SelectorChoice&, const SelectorChoice&) = default;
};

/// What rows are made with now.
[[nodiscard]] RowContext rowContext(const ViewWorld& world);

/// One room of the window, made when it is first visited. The window places its view and tells it
/// where the user is; it knows neither the window nor another section.
class Section : public QObject {
  Q_OBJECT

 public:
  /// The same widget always; the window takes it as a child.
  [[nodiscard]] virtual QWidget* view() = 0;
  /// Shows what is known of the place, then asks for what is not. The row and the scroll of the
  /// place are brought back once its rows are there.
  virtual void show(const Place& place) = 0;
  /// Where the user is now, with the row and the scroll of this moment.
  [[nodiscard]] virtual Place place() const = 0;
  /// What actions act on.
  [[nodiscard]] virtual std::vector<AppKey> chosen() const = 0;
  /// The same with their names as the section shows them.
  [[nodiscard]] virtual std::vector<NamedKey> named() const;
  /// Asks anew for what is shown.
  virtual void refresh() = 0;
  /// The user asked for what is shown: asks anew where the answer is not quite young.
  virtual void renew() {}

  /// "Watchlist", "Writing"
  [[nodiscard]] virtual QString title() const = 0;
  /// What the field in the toolbar says while it is empty: "Find in Watchlist".
  [[nodiscard]] virtual QString findText() const = 0;
  /// Changes what is shown of the rows: text, chips, sort.
  virtual void setRowView(const RowView& view) = 0;
  /// The orders to choose from; fewer than two leave nothing to choose.
  [[nodiscard]] virtual std::span<const SortChoice> sorts() const = 0;
  /// The rows as they are shown, for those who walk through them; null where there are none.
  [[nodiscard]] virtual const RowFilterModel* rows() const = 0;
  /// Whether the rows are apps, each with a page.
  [[nodiscard]] virtual bool hasPages() const { return true; }
  /// Chooses the row, and brings it into sight.
  virtual void choose(const RowKey& row) = 0;
  /// Puts the keyboard's focus where the rows are.
  virtual void takeFocus() = 0;

  /// What the menu calls it to take what is chosen out of the list: "Remove from Watchlist"; empty
  /// where that cannot be done.
  [[nodiscard]] virtual QString removalText() const { return {}; }
  /// The edit that does it; absent where nothing is chosen.
  [[nodiscard]] virtual std::optional<LibraryEdit> removal() const { return {}; }

  /// What the menu calls it to mark what is chosen as read, or as unread where all of it is read;
  /// empty where rows have no such mark.
  [[nodiscard]] virtual QString markingText() const { return {}; }
  /// The edit that does it; absent where nothing is chosen.
  [[nodiscard]] virtual std::optional<LibraryEdit> marking() const { return {}; }

  /// How the last price check ended, for lists that tell of it: Ready where there is nothing to
  /// say.
  virtual void noteChecks(const ListState& /*outcome*/) {}
  /// The edit that watches what is chosen, with the price that its row shows as target; absent
  /// where that cannot be done.
  [[nodiscard]] virtual std::optional<LibraryEdit> targetWatch() const { return {}; }

  /// Whether the row that is chosen has a note, or may have one, which can be edited in its place.
  [[nodiscard]] virtual bool canEditNote() const { return false; }
  virtual void editNote() {}

  /// Whether an action that only this section has can be done now, by its ID.
  [[nodiscard]] virtual bool canDo(std::string_view /*action*/) const { return false; }
  virtual void perform(std::string_view /*action*/) {}

  /// What stands in the toolbar in the place of the title and of the field that finds rows, or
  /// between them; null for nothing. The same always, and likewise a child of the window. In their
  /// place, and given the focus, it passes it on to its own field.
  [[nodiscard]] virtual QWidget* tools() { return nullptr; }
  [[nodiscard]] virtual ToolsPlace toolsPlace() const { return ToolsPlace::instead; }
  /// Takes the button of the list's orders among the tools, as a child; false leaves it beside
  /// them.
  virtual bool placeSort(QWidget* /*button*/) { return false; }
  /// A bar above the list and the page, with the line below it; null for none. As tools().
  [[nodiscard]] virtual QWidget* bar() { return nullptr; }
  /// How wide the view has to be at least, beside a page. Another width is told as another place.
  [[nodiscard]] virtual int leastWidth() const { return kLeastListWidth; }
  /// Whether the panel of filters is shown; absent where there is none. Told as another place.
  [[nodiscard]] virtual std::optional<bool> filtersShown() const { return {}; }
  virtual void toggleFilters() {}
  /// Whether there is anything to choose by selectors.
  [[nodiscard]] virtual bool hasSelectors() const { return false; }
  [[nodiscard]] virtual std::vector<SelectorChoice> choicesOf(Selector /*which*/) const {
    return {};
  }
  /// `id`: of one of these choices. Told as another place.
  virtual void select(Selector /*which*/, const std::string& /*id*/) {}

 Q_SIGNALS:
  /// The place() or title() is another one: another row, chip, text, sort or scroll.
  void placeChanged();
  /// The user wants to go elsewhere.
  void goes(const quillet::Place& to);
  /// The user opened a row: its page takes the list's place, or the focus.
  void opens(const quillet::RowKey& row);
  /// The user wants the menu of what is chosen, at that point of the screen.
  void menuAsked(const QPoint& at);
  /// The user wants to keep the search that is shown.
  void saveAsked();
  /// The user wants to change the setting that the section tells of.
  void settingsAsked();
  /// The user wants what the list offers while it is empty: an action, by its ID.
  void actionAsked(const QString& id);
};

}  // namespace quillet
