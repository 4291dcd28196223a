// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/library/sample_pictures.h"

#include "base/errors.h"
#include "library/library_connection.h"
#include "library/schema/entities.h"
#include "library/schema/rows.h"
#include "sandbox/pictures.h"
#include "store/records/itunes_app.h"

namespace quillet::sandbox {

namespace {

/// Says of rows whether their pictures lead elsewhere, and turns them to the host.
class Guide {
 public:
  explicit Guide(const std::string& host) : host_(host) {}

  template <typename Row>
  bool turn(Row& row) const {
    return turn(row.artworkUrl, {row.trackId, Picture::icon});
  }

  bool turn(CachedApp& row) const {
    const bool isMac = row.kind == kMacSoftwareKind;
    const Picture picture = isMac ? Picture::macScreenshot : Picture::iphoneScreenshot;
    const bool icon = turn(row.artworkUrl512, {row.trackId, Picture::icon});
    const bool screenshots = turn(row.screenshotUrls, {row.trackId, picture});
    const bool forPad = turn(row.ipadScreenshotUrls, {row.trackId, Picture::ipadScreenshot});
    return icon || screenshots || forPad;
  }

 private:
  /// The path of the sample store's own address; empty for another's.
  static std::string_view ourPath(std::string_view address) {
    const std::size_t path = address.find("/image/thumb/");
    const std::string_view host = address.substr(0, std::min(path, address.size()));
    const bool isOurs =
        host.starts_with("http://127.0.0.1:") || host.ends_with(".quillet-pictures.example");
    return isOurs && path < address.size() ? address.substr(path) : std::string_view();
  }

  bool turn(std::string& address, const PictureName& name) const {
    const std::string_view path = ourPath(address);
    if (path.empty() || address.starts_with(host_ + "/")) return false;
    // Before pictures were drawn, no address told which one it was.
    const std::string_view lastPart = path.substr(path.rfind('/') + 1);
    const auto known = askedPicture(path);
    address = pictureUrl(host_, known ? known->name : name, lastPart);
    return true;
  }

  bool turn(std::optional<std::string>& address, const PictureName& name) const {
    return address && turn(*address, name);
  }

  bool turn(std::vector<std::string>& addresses, PictureName name) const {
    bool any = false;
    for (std::string& address : addresses) {
      any = turn(address, name) || any;
      ++name.number;
    }
    return any;
  }

  std::string host_;
};

/// The rows whose pictures led elsewhere, as they shall be.
template <typename Row>
std::vector<Row> turned(SQLite::Database& library, const Guide& guide) {
  std::vector<Row> rows = selectRows<Row>(library, "");
  std::erase_if(rows, [&](Row& row) { return !guide.turn(row); });
  return rows;
}

template <typename... Rows>
bool leadElsewhere(SQLite::Database& library, const Guide& guide) {
  return (!turned<Rows>(library, guide).empty() || ...);
}

template <typename... Rows>
void turnAll(SQLite::Database& library, const Guide& guide) {
  const auto update = [&]<typename Row>(const std::vector<Row>& rows) {
    RowUpdater<Row> updater(library);
    for (const Row& row : rows) updater.update(row);
  };
  (update(turned<Rows>(library, guide)), ...);
}

}  // namespace

void leadPicturesTo(const std::filesystem::path& folder, const std::string& host) {
  const std::filesystem::path file = folder / "default.store";
  const Guide guide(host);
  try {
    SQLite::Database reader(file.string(), SQLite::OPEN_READONLY);
    if (!leadElsewhere<WatchedApp, OwnedApp, CollectionEntry, AlertRecord, CachedApp>(reader,
                                                                                      guide))
      return;
    LibraryConnection library(file);
    LibraryChanges changes;
    library.change(changes, [&](WriteTransaction& change) {
      turnAll<WatchedApp, OwnedApp, CollectionEntry, AlertRecord, CachedApp>(change.database,
                                                                             guide);
    });
  } catch (const SQLite::Exception&) {
    return;
  } catch (const DatabaseError&) {
    return;
  }
}

}  // namespace quillet::sandbox
