// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/installed_apps.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <set>
#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "net/worker.h"
#include "queries/patient_asking.h"
#include "scan/bundle_reader.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

// A person sees no more steps than these.
constexpr auto kNewsPace = 50ms;
constexpr std::size_t kCopiesAtOnce = 500;

bool isMatched(const FoundApp& app) { return app.row.has_value(); }

}  // namespace

/// One scan. What the worker shares with the event loop stands behind the mutex.
struct InstalledApps::Job {
  ScanWatch watch() {
    const auto tellRead = [this](const InstalledBundle& bundle, const ScanProgress& reached) {
      tell(&bundle, reached);
    };
    return {[this] { return isStopped.load(); }, tellRead,
            [this](const InstalledBundle& /*bundle*/, const ScanProgress& reached) {
              tell(nullptr, reached);
            }};
  }

  /// On the worker.
  void tell(const InstalledBundle* bundle, const ScanProgress& reached) {
    const std::lock_guard lock(mutex);
    if (bundle != nullptr) read.push_back(*bundle);
    progress = reached;
    const auto now = std::chrono::steady_clock::now();
    if (read.size() < kLookupBatch && now - told < kNewsPace) return;
    told = now;
    news.set();
  }

  void end(ScanResult all) {
    const std::lock_guard lock(mutex);
    result = std::move(all);
    hasEnded = true;
    news.set();
  }

  Completion nextNews() {
    const std::lock_guard lock(mutex);
    return news;
  }

  void stopAll() {
    isStopped = true;
    stop.requestStop();
  }

  std::string country;
  std::set<std::string> ignored;
  std::set<std::string> foundBefore;  ///< what it does not add once more
  std::atomic<bool> isStopped = false;

  std::mutex mutex;
  std::vector<InstalledBundle> read;
  ScanProgress progress;
  Completion news;
  std::chrono::steady_clock::time_point told;
  ScanResult result;
  bool hasEnded = false;

  // Of the event loop alone.
  StopSource stop;
  std::vector<InstalledBundle> pending;
  ScanOutcome outcome;
  bool isRead = false;  ///< the worker has nothing more to tell
  bool isMatching = false;
  Completion over;
};

InstalledApps::InstalledApps(InstalledAppsWorld world) : world_(std::move(world)) {}

InstalledApps::~InstalledApps() { stop(); }

void InstalledApps::scan(ScanCause cause) { scanFolders(chosenFolders(world_.settings), cause); }

void InstalledApps::scanFolders(const FolderList& folders, ScanCause cause) {
  if (folders.empty()) return;
  begin([folders](const ScanWatch& watch) { return scanApplications(folders, watch); }, cause);
}

void InstalledApps::look(const FolderList& bundles) {
  begin([bundles](const ScanWatch& watch) { return readBundles(bundles, watch); }, ScanCause::drop);
}

void InstalledApps::stop() {
  if (job_) job_->stopAll();
}

Task<> InstalledApps::ended() {
  const std::shared_ptr<Job> job = job_;
  if (job) co_await job->over;
}

void InstalledApps::begin(BundleSource source, ScanCause cause) {
  if (isScanning()) return;
  auto job = std::make_shared<Job>();
  job->country = world_.storefront();
  // What is handed in is meant.
  if (cause != ScanCause::drop) job->ignored = ignoredBundles(world_.settings);
  // What was taken out of My Apps comes back when the user asks, and sees it.
  if (cause == ScanCause::start) job->foundBefore = foundBundles(world_.state);
  job->outcome.cause = cause;
  job->outcome.at = world_.clock.now();
  job_ = job;
  stand_ = {};
  detach(read(job, std::move(source)), "A scan");
  detach(follow(this, job), "A scan");
  Q_EMIT changed();
}

Task<> InstalledApps::read(std::shared_ptr<Job> job, BundleSource source) {
  ScanResult result;
  try {
    result = co_await onWorker([job, source] { return source(job->watch()); });
  } catch (const std::exception&) {
    job->outcome.failure = std::current_exception();
  }
  job->end(std::move(result));
}

Task<> InstalledApps::follow(QPointer<InstalledApps> apps, std::shared_ptr<Job> job) {
  while (!job->isRead) {
    const Completion news = job->nextNews();
    co_await news;
    if (!apps) break;
    apps->takeNews(job);
  }
  if (!apps) job->over.set();
}

void InstalledApps::takeNews(const std::shared_ptr<Job>& job) {
  {
    const std::lock_guard lock(job->mutex);
    std::ranges::move(job->read, std::back_inserter(job->pending));
    job->read.clear();
    job->news = Completion();
    job->isRead = job->hasEnded;
    stand_.step = job->progress.step;
    stand_.done = job->progress.done;
    stand_.total = job->progress.total;
  }
  Q_EMIT changed();
  goOn(job);
}

/// Whole batches, and at the end what is left.
void InstalledApps::goOn(const std::shared_ptr<Job>& job) {
  if (job->isMatching) return;
  const bool hasBatch = job->pending.size() >= kLookupBatch;
  if (hasBatch || (job->isRead && !job->pending.empty())) {
    job->isMatching = true;
    detach(match(this, job), "A scan");
  } else if (job->isRead) {
    job->isMatching = true;
    detach(finish(this, job), "A scan");
  }
}

FoundBatch InstalledApps::nextBatch(Job& job) {
  FoundBatch batch{
      {}, {}, job.country, job.outcome.at, job.outcome.cause != ScanCause::drop, job.foundBefore};
  const std::size_t count = std::min(job.pending.size(), kLookupBatch);
  const auto end = job.pending.begin() + static_cast<std::ptrdiff_t>(count);
  for (auto each = job.pending.begin(); each != end; ++each) {
    const bool isIgnored = each->bundleId && job.ignored.contains(lowerAscii(*each->bundleId));
    batch.apps.push_back(
        {std::move(*each), isIgnored ? FoundAs::ignored : FoundAs::notAsked, {}, {}});
  }
  job.pending.erase(job.pending.begin(), end);
  return batch;
}

/// What was read is noted of the apps that are there, even where the store cannot be asked.
Task<> InstalledApps::match(QPointer<InstalledApps> apps, std::shared_ptr<Job> job) {
  FoundBatch batch = nextBatch(*job);
  if (!job->isStopped && !job->outcome.failure) {
    std::vector<BundleIdentity> asked;
    for (const FoundApp& each : batch.apps)
      asked.push_back(each.as == FoundAs::ignored ? BundleIdentity() : identityOf(each.bundle));
    const auto ask = [asked, country = job->country](QueryServices services, QueryCall call) {
      call.context.requestClass = RequestClass::background;
      const StopToken stop = call.context.stop;
      const auto match = [asked, country, services, call] {
        return matchBundles(asked, country, services, call);
      };
      return askPatiently(match, &services.clock, stop);
    };
    try {
      batch.matches = co_await apps->world_.store.ask(ask, job->stop.token());
    } catch (const std::exception&) {
      if (!job->isStopped) job->outcome.failure = std::current_exception();
    }
  }
  if (!apps) co_return job->over.set();
  std::vector<FoundApp> found = batch.apps;
  try {
    found = co_await apps->world_.library.change(recordFound, std::move(batch));
  } catch (const DatabaseError&) {
    job->outcome.failure = std::current_exception();
    job->outcome.isWritten = false;
  }
  if (!apps) co_return job->over.set();
  job->outcome.matched += static_cast<std::size_t>(std::ranges::count_if(found, isMatched));
  std::ranges::move(found, std::back_inserter(job->outcome.apps));
  job->isMatching = false;
  apps->stand_.matched = job->outcome.matched;
  Q_EMIT apps->changed();
  if (apps) apps->goOn(job);
}

/// The sizes, which come last.
std::vector<InstalledCopy> InstalledApps::measured(Job& job) {
  std::vector<InstalledCopy> copies;
  std::vector<FoundApp>& found = job.outcome.apps;
  const std::size_t count = std::min(found.size(), job.result.bundles.size());
  for (std::size_t i = 0; i < count; ++i) {
    found[i].bundle.sizeBytes = job.result.bundles[i].sizeBytes;
    if (found[i].row) found[i].row->installedSizeBytes = found[i].bundle.sizeBytes;
    const bool isNoted = job.outcome.cause != ScanCause::drop && !found[i].keys.empty();
    if (found[i].bundle.sizeBytes && isNoted)
      copies.push_back(copyOf(found[i].bundle, job.outcome.at));
  }
  return copies;
}

Task<> InstalledApps::finish(QPointer<InstalledApps> apps, std::shared_ptr<Job> job) {
  ScanOutcome& outcome = job->outcome;
  const std::vector<InstalledCopy> copies = measured(*job);
  for (std::size_t first = 0; first < copies.size() && outcome.isWritten; first += kCopiesAtOnce) {
    const auto from = copies.begin() + static_cast<std::ptrdiff_t>(first);
    const std::size_t count = std::min(kCopiesAtOnce, copies.size() - first);
    std::vector<InstalledCopy> some(from, from + static_cast<std::ptrdiff_t>(count));
    try {
      co_await apps->world_.library.change(recordCopies, std::move(some));
    } catch (const DatabaseError&) {
      outcome.failure = std::current_exception();
      outcome.isWritten = false;
    }
    if (!apps) co_return job->over.set();
  }
  outcome.folders = job->result.folders;
  outcome.end = job->isStopped ? ScanEnd::stopped : job->result.end;
  apps->remember(*job);
  apps->job_.reset();
  job->over.set();
  Q_EMIT apps->changed();
  if (apps) Q_EMIT apps->scanned(outcome);
}

/// What is gone from the disk is forgotten, and new where it comes again; unless a disk was away.
void InstalledApps::rememberFoundBy(const Job& job) {
  const ScanOutcome& outcome = job.outcome;
  std::set<std::string> before = foundBundles(world_.state);
  std::set<std::string> ids;
  for (const FoundApp& each : outcome.apps) {
    const auto id = bundleIdOf(each);
    if (id && (!each.keys.empty() || before.contains(*id))) ids.insert(*id);
  }
  const auto isRead = [&outcome](const std::filesystem::path& folder) {
    return std::ranges::any_of(outcome.folders, [&folder](const ScannedFolder& each) {
      return each.folder == folder && each.state == FolderState::read;
    });
  };
  const bool isAll = outcome.end == ScanEnd::complete &&
                     std::ranges::all_of(chosenFolders(world_.settings), isRead);
  if (!isAll) ids.merge(before);
  rememberFound(world_.state, ids);
}

/// Of a folder that could not be read whole nothing is concluded.
void InstalledApps::remember(const Job& job) {
  const ScanOutcome& outcome = job.outcome;
  if (outcome.cause == ScanCause::drop) return;
  rememberFoundBy(job);
  if (outcome.end != ScanEnd::complete || !outcome.isWritten) return;
  LastScan scan = last().value_or(LastScan());
  scan.at = outcome.at;
  scan.bundles = outcome.apps.size();
  scan.matched = outcome.matched;
  for (const ScannedFolder& each : outcome.folders) {
    if (each.state == FolderState::read) scan.folders[each.folder.string()] = outcome.at;
  }
  rememberScan(world_.state, scan);
}

ScanResult readBundles(const FolderList& bundles, const ScanWatch& watch) {
  ScanResult result;
  for (const std::filesystem::path& each : bundles) {
    std::filesystem::path path = each.lexically_normal();
    if (!path.has_filename()) path = path.parent_path();
    const BundlePlace place{path.parent_path(), {path.filename().string()}};
    InstalledBundle bundle = readBundle(place);
    bundle.sizeBytes = sizeOfBundle(place, watch.stopped);
    result.bundles.push_back(std::move(bundle));
    watch.bundleRead(result.bundles.back(),
                     {ScanStep::reading, result.bundles.size(), bundles.size()});
  }
  return result;
}

}  // namespace quillet
