// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/local_store.h"

#include <fcntl.h>
#include <unistd.h>

#include <vector>

#include "base/urls.h"
#include "cli/cli_error.h"
#include "cli/local/held_signals.h"
#include "cli/local/scratch_directory.h"
#include "system/places.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

constexpr const char* kDatabase = "default.store";
constexpr std::string_view kCompanions[] = {"", "-wal", "-shm"};

// A lock and a missing companion file show only when something is read. The transaction stays open
// for as long as the store does, so that all its queries see one state.
constexpr const char* kProbe = "BEGIN; SELECT 1 FROM sqlite_master";

class File {
 public:
  File(const fs::path& path, int flags)
      : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, S_IRUSR | S_IWUSR)) {}
  ~File() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  /// How much was read: 0 at the end, negative on failure.
  ssize_t read(std::vector<char>& buffer) const {
    return ::read(descriptor_, buffer.data(), buffer.size());
  }
  [[nodiscard]] bool write(const char* bytes, std::size_t size) const {
    while (size > 0) {
      const ssize_t written = ::write(descriptor_, bytes, size);
      if (written < 0) return false;
      bytes += written;
      size -= static_cast<std::size_t>(written);
    }
    return true;
  }

 private:
  int descriptor_;
};

/// False where it fails, or where a signal asks to end.
bool copyFile(const fs::path& from, const fs::path& to, const HeldSignals& signals) {
  constexpr std::size_t kPiece = 1 << 20;
  const File source(from, O_RDONLY);
  const File target(to, O_WRONLY | O_CREAT | O_EXCL);
  std::vector<char> buffer(kPiece);
  while (!signals.waiting()) {
    const ssize_t size = source.read(buffer);
    if (size <= 0) return size == 0;
    if (!target.write(buffer.data(), static_cast<std::size_t>(size))) return false;
  }
  return false;
}

/// SQLite looks for the companions beside the file that a link leads to, and so do we.
bool copyDatabase(const fs::path& database, const fs::path& folder, const HeldSignals& signals) {
  std::error_code error;
  const fs::path real = fs::canonical(database, error);
  for (const std::string_view suffix : kCompanions) {
    const fs::path from = fs::path(real) += suffix;
    const fs::path to = (folder / kDatabase) += suffix;
    if (fs::is_regular_file(from, error) && !copyFile(from, to, signals)) return false;
  }
  return true;
}

CLIError cannotOpen() {
  return {CLIError::Code::internal, "Quillet's database could not be opened for reading."};
}

fs::path temporaryDirectory(const Environment& environment) {
  std::error_code error;
  return fs::absolute(environment.get("TMPDIR").value_or("/tmp"), error);
}

/// Throws CLIError where there is no file. Opening a pipe that stands in its place would wait for
/// someone to write into it. A folder that we may not look into is not one without data.
void checkIsFile(const fs::path& database) {
  std::error_code error;
  const fs::file_type type = fs::status(database, error).type();
  if (type == fs::file_type::not_found) {
    throw CLIError(CLIError::Code::notFound, "Quillet has no data yet.",
                   {"Open Quillet once, add something, then try again."});
  }
  if (type != fs::file_type::regular && type != fs::file_type::none) throw cannotOpen();
}

}  // namespace

CLILocalStore::Connection CLILocalStore::openReadOnly(const fs::path& database, const Log& log) {
  const std::string uri = "file:" + percentEncoded(database.native()) + "?mode=ro";
  sqlite3* handle = nullptr;
  // No two threads ask: SQLite need not lock each step.
  constexpr int kMode = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX;
  const int result = sqlite3_open_v2(uri.c_str(), &handle, kMode, nullptr);
  Connection connection(handle);
  if (result != SQLITE_OK || !connection) return nullptr;
  if (log) log->watch(handle);
  if (sqlite3_exec(handle, kProbe, nullptr, nullptr, nullptr) != SQLITE_OK) return nullptr;
  return connection;
}

/// Once the probe has been read, SQLite holds all files open and asks for their names no more. So
/// the directory goes away here already, and nothing that ends the process later can leave it.
CLILocalStore::Connection CLILocalStore::openCopy(const fs::path& database,
                                                  const fs::path& temporaryDirectory,
                                                  const Log& log) {
  const HeldSignals signals;
  const auto scratch = ScratchDirectory::create(temporaryDirectory);
  if (!scratch || !copyDatabase(database, scratch->path(), signals)) return nullptr;
  return openReadOnly(scratch->path() / kDatabase, log);
}

CLILocalStore CLILocalStore::open(const Environment& environment, const LogSink& sink) {
  const fs::path database = findPlaces(environment).dataDirectory / kDatabase;
  checkIsFile(database);
  Log log = sink ? std::make_unique<QueryLog>(sink) : nullptr;
  Connection connection = openReadOnly(database, log);
  // The writer can move its log into the database between our copies of the two: a copy that makes
  // no sense is made once more.
  for (int copies = 0; !connection && copies < 2; ++copies) {
    connection = openCopy(database, temporaryDirectory(environment), log);
  }
  if (!connection) throw cannotOpen();
  return CLILocalStore(std::move(log), std::move(connection));
}

}  // namespace quillet
