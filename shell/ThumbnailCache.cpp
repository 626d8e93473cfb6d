#include "shell/ThumbnailCache.h"

#include <sys/resource.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QPointer>
#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <utility>

namespace morvane {
namespace {

/// The size of the cache per unit of zoom. If the visible rows didn't fit, they would be decoded
/// again and again.
constexpr qsizetype kMaxKilobytes = 8192;

/// The current thread, and one that was abandoned and hangs. Once two hang, others would probably
/// hang too.
constexpr int kMaxThreads = 2;

/// The number of threads that have not reported their end yet.
int running = 0;

/// Lowers the priority of the calling thread, so that the window stays responsive.
void LowerPriority() {
  constexpr int kNiceness = 5;
  setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNiceness);
}

}  // namespace

struct ThumbnailCache::Job {
  Job() = default;
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
  /// Detaches a thread that still runs at the end of the program.
  ~Job() {
    if (thread.joinable()) thread.detach();
  }

  std::string path;
  ThumbnailSizes sizes;
  std::atomic<bool> isCanceled = false;
  Thumbnail thumbnail;
  std::thread thread;
};

ThumbnailCache::ThumbnailCache(const ThumbnailSizes& sizes, std::chrono::milliseconds timeLimit)
    : made_(kMaxKilobytes), sizes_(sizes) {
  timeLimit_.setSingleShot(true);
  timeLimit_.setInterval(timeLimit);
  connect(&timeLimit_, &QTimer::timeout, this, [this] {
    Keep({});  // no picture
    StopWaiting();
    MakeNext();
  });
}

ThumbnailCache::~ThumbnailCache() {
  StopWaiting();
}

const Thumbnail* ThumbnailCache::Of(const std::string& path) const {
  return made_.object(QByteArray::fromStdString(path));
}

void ThumbnailCache::Request(std::deque<std::string> paths, int zoom) {
  if (zoom != sizes_.zoom) Clear();
  sizes_.zoom = zoom;
  made_.setMaxCost(kMaxKilobytes * zoom);
  requested_ = std::move(paths);
  const bool isWanted = job_ != nullptr && std::find(requested_.begin(), requested_.end(),
                                                     job_->path) != requested_.end();
  if (!isWanted) StopWaiting();
  MakeNext();
}

void ThumbnailCache::Clear() {
  made_.clear();
  requested_.clear();
  StopWaiting();
}

bool ThumbnailCache::AreBeingMade() {
  return running > 0;
}

void ThumbnailCache::MakeNext() {
  while (job_ == nullptr && running < kMaxThreads && !requested_.empty()) {
    const std::string path = std::move(requested_.front());
    requested_.pop_front();
    if (Of(path) == nullptr) Start(path);
  }
}

void ThumbnailCache::Start(const std::string& path) {
  const auto job = std::make_shared<Job>();
  job->path = path;
  job->sizes = sizes_;
  // The thread may outlive this object, which is accessed only in the main thread.
  const auto work = [job, self = QPointer(this)] {
    LowerPriority();
    job->thumbnail = ReadThumbnail(job->path, job->sizes, job->isCanceled);
    QMetaObject::invokeMethod(
        qApp,
        [job, self] {
          job->thread.join();
          --running;
          if (self != nullptr) self->Finish(job);
        },
        Qt::QueuedConnection);
  };
  try {
    job->thread = std::thread(work);
  } catch (const std::system_error&) {
    // No more threads now: a later request tries again.
    requested_.clear();
    return;
  }
  ++running;
  job_ = job;
  timeLimit_.start();
}

void ThumbnailCache::Finish(const std::shared_ptr<Job>& job) {
  if (job == job_) {
    Keep(std::move(job->thumbnail));
    StopWaiting();
    emit ThumbnailReady();
  }
  MakeNext();
}

void ThumbnailCache::Keep(Thumbnail thumbnail) {
  constexpr qsizetype kKilobyte = 1024;
  const qsizetype bytes = thumbnail.small.sizeInBytes() + thumbnail.large.sizeInBytes();
  made_.insert(QByteArray::fromStdString(job_->path), new Thumbnail(std::move(thumbnail)),
               1 + bytes / kKilobyte);
}

void ThumbnailCache::StopWaiting() {
  timeLimit_.stop();
  if (job_ == nullptr) return;
  job_->isCanceled = true;
  job_.reset();
}

}  // namespace morvane
