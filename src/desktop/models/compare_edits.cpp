// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/compare_edits.h"

#include <QCoreApplication>
#include <QPointer>
#include <array>
#include <functional>
#include <utility>

namespace quillet {

namespace {

using Addition = CompareList::Addition;
using Keys = std::vector<ComparedKey>;

QString tr(const char* text) { return QCoreApplication::translate("Compare", text); }

QString limitText() { return tr("At most %1 apps are compared at once.").arg(CompareList::kMost); }

/// Turns the list back to what it was before, and forth again.
std::function<void()> turning(CompareList& list, Keys before) {
  return [list = QPointer(&list), other = std::move(before)]() mutable {
    if (list.isNull()) return;
    Keys now = list->apps();
    list->set(std::exchange(other, std::move(now)));
  };
}

/// Whose first call was for what is done already.
LibraryEdit editOfDone(CompareList& list, Keys before, const QString& name, const QString& done) {
  LibraryEdit edit{name, done, tr("This cannot be undone."), changingNothing()};
  edit.beside = [turn = turning(list, std::move(before)), isFirst = true]() mutable {
    if (!std::exchange(isFirst, false)) turn();
  };
  return edit;
}

/// Whose first call changes the list.
template <typename Change>
LibraryEdit editOf(CompareList& list, Change change, const QString& name, const QString& done) {
  LibraryEdit edit{name, done, tr("Nothing was changed."), changingNothing()};
  edit.beside = [list = QPointer(&list), change, turn = std::function<void()>()]() mutable {
    if (turn) return turn();
    if (list.isNull()) return;
    turn = turning(*list, list->apps());
    change(*list);
  };
  return edit;
}

QString phraseOf(const std::vector<NamedCompared>& apps, std::size_t count) {
  if (count != 1) return tr("%1 apps").arg(count);
  const QString& name = apps.front().name;
  return name.isEmpty() ? tr("1 app") : tr("“%1”").arg(name);
}

QString refusalOf(Addition why, const std::vector<NamedCompared>& apps, const CompareList& list) {
  const QString what = phraseOf(apps, apps.size());
  switch (why) {
    case Addition::alreadyThere:
      return (apps.size() == 1 ? tr("%1 is compared already.") : tr("%1 are compared already."))
          .arg(what);
    case Addition::otherStorefront:
      return tr("%1: not added. Only apps of one storefront are compared, now of “%2”.")
          .arg(what, QString::fromStdString(list.storefront()));
    case Addition::full:
    case Addition::added: break;
  }
  return tr("%1: not added. %2").arg(what, limitText());
}

/// What the apps that were not added were left out for.
QString remarkOf(std::size_t full, std::size_t elsewhere) {
  QString text;
  if (full > 0) text += u' ' + limitText();
  if (elsewhere > 0) text += u' ' + tr("Apps of other storefronts were left out.");
  return text;
}

CompareAddition addAll(CompareList& list, Keys before, const std::vector<NamedCompared>& apps,
                       const char* name, const char* done) {
  std::vector<NamedCompared> added;
  std::array<std::size_t, 4> counts{};
  for (const NamedCompared& each : apps) {
    const Addition addition = list.add(each.key);
    ++counts.at(static_cast<std::size_t>(addition));
    if (addition == Addition::added) added.push_back(each);
  }
  const auto count = [&](Addition which) { return counts.at(static_cast<std::size_t>(which)); };
  if (added.empty()) {
    Addition why = Addition::alreadyThere;
    if (count(Addition::otherStorefront) > 0) why = Addition::otherStorefront;
    if (count(Addition::full) > 0) why = Addition::full;
    return {{}, refusalOf(why, apps, list)};
  }
  const QString what = phraseOf(added, added.size());
  const QString remark = remarkOf(count(Addition::full), count(Addition::otherStorefront));
  return {editOfDone(list, std::move(before), tr(name).arg(what), tr(done).arg(what) + remark), {}};
}

}  // namespace

CompareAddition addToCompare(CompareList& list, const std::vector<NamedCompared>& apps) {
  return addAll(list, list.apps(), apps, QT_TRANSLATE_NOOP("Compare", "Add %1 to Compare"),
                QT_TRANSLATE_NOOP("Compare", "Added %1 to Compare."));
}

CompareAddition compareInstead(CompareList& list, const std::vector<NamedCompared>& apps) {
  Keys before = list.apps();
  list.clear();
  return addAll(list, std::move(before), apps, QT_TRANSLATE_NOOP("Compare", "Compare %1"),
                QT_TRANSLATE_NOOP("Compare", "Comparing %1."));
}

LibraryEdit removeFromCompare(CompareList& list, const std::vector<AppKey>& apps,
                              const QString& name) {
  const QString what = apps.size() == 1 ? tr("“%1”").arg(name) : tr("%1 apps").arg(apps.size());
  const auto change = [apps](CompareList& changed) {
    for (const AppKey& app : apps) changed.remove(app);
  };
  return editOf(list, change, tr("Remove %1 from Compare").arg(what),
                tr("Removed %1 from Compare.").arg(what));
}

LibraryEdit moveCompared(CompareList& list, const AppKey& app, std::size_t to,
                         const QString& name) {
  const auto change = [app, to](CompareList& changed) { changed.move(app, to); };
  return editOf(list, change, tr("Move “%1”").arg(name), tr("Moved “%1”.").arg(name));
}

}  // namespace quillet
