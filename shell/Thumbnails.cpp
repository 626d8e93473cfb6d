#include "shell/Thumbnails.h"

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
constexpr qsizetype kMostKilobytes = 8192;

/// The current thread, and one that was abandoned and hangs. Once two hang, others would probably
/// hang too.
constexpr int kMostAtWork = 2;

/// The number of threads that have not reported their end yet.
int atWork = 0;

/// Lowers the priority of the calling thread, so that the window stays responsive.
void LowerPriority() {
  constexpr int kNiceness = 5;
  setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNiceness);
}

}  // namespace

struct Thumbnails::Job {
  Job() = default;
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
  /// Detaches a thread that still runs at the end of the program.
  ~Job() {
    if (thread.joinable()) thread.detach();
  }

  std::string path;
  int zoom;
  std::atomic<bool> isGivenUp = false;
  Thumbnail thumbnail;
  std::thread thread;
};

Thumbnails::Thumbnails(std::chrono::milliseconds timeLimit) : made_(kMostKilobytes) {
  timeLimit_.setSingleShot(true);
  timeLimit_.setInterval(timeLimit);
  connect(&timeLimit_, &QTimer::timeout, this, [this] {
    Keep({});  // no picture
    StopWaiting();
    MakeNext();
  });
}

Thumbnails::~Thumbnails() {
  StopWaiting();
}

const Thumbnail* Thumbnails::Of(const std::string& path) const {
  return made_.object(QByteArray::fromStdString(path));
}

void Thumbnails::Want(std::deque<std::string> paths, int zoom) {
  if (zoom != zoom_) Clear();
  zoom_ = zoom;
  made_.setMaxCost(kMostKilobytes * zoom);
  wanted_ = std::move(paths);
  const bool isWanted =
      job_ != nullptr && std::find(wanted_.begin(), wanted_.end(), job_->path) != wanted_.end();
  if (!isWanted) StopWaiting();
  MakeNext();
}

void Thumbnails::Clear() {
  made_.clear();
  wanted_.clear();
  StopWaiting();
}

bool Thumbnails::AreBeingMade() {
  return atWork > 0;
}

void Thumbnails::MakeNext() {
  while (job_ == nullptr && atWork < kMostAtWork && !wanted_.empty()) {
    const std::string path = std::move(wanted_.front());
    wanted_.pop_front();
    if (Of(path) == nullptr) Start(path);
  }
}

void Thumbnails::Start(const std::string& path) {
  const auto job = std::make_shared<Job>();
  job->path = path;
  job->zoom = zoom_;
  // The thread may outlive this object, which is accessed only in the main thread.
  const auto work = [job, self = QPointer(this)] {
    LowerPriority();
    job->thumbnail = ReadThumbnail(job->path, job->zoom, job->isGivenUp);
    QMetaObject::invokeMethod(
        qApp,
        [job, self] {
          job->thread.join();
          --atWork;
          if (self != nullptr) self->Finish(job);
        },
        Qt::QueuedConnection);
  };
  try {
    job->thread = std::thread(work);
  } catch (const std::system_error&) {
    // No more threads now: a later request tries again.
    wanted_.clear();
    return;
  }
  ++atWork;
  job_ = job;
  timeLimit_.start();
}

void Thumbnails::Finish(const std::shared_ptr<Job>& job) {
  if (job == job_) {
    Keep(std::move(job->thumbnail));
    StopWaiting();
    emit Made();
  }
  MakeNext();
}

void Thumbnails::Keep(Thumbnail thumbnail) {
  constexpr qsizetype kKilobyte = 1024;
  const qsizetype bytes = thumbnail.small.sizeInBytes() + thumbnail.large.sizeInBytes();
  made_.insert(QByteArray::fromStdString(job_->path), new Thumbnail(std::move(thumbnail)),
               1 + bytes / kKilobyte);
}

void Thumbnails::StopWaiting() {
  timeLimit_.stop();
  if (job_ == nullptr) return;
  job_->isGivenUp = true;
  job_.reset();
}

}  // namespace morvane
