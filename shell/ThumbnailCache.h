#pragma once

#include <QCache>
#include <QTimer>
#include <chrono>
#include <deque>
#include <memory>
#include <string>

#include "platform/Thumbnail.h"

namespace morvane {

/// The thumbnails of picture files. They are made in other threads, one at a time, and kept in a
/// small cache.
class ThumbnailCache : public QObject {
  Q_OBJECT

 public:
  /// A picture that takes longer than the limit has no thumbnail.
  explicit ThumbnailCache(const ThumbnailSizes& sizes,
                          std::chrono::milliseconds timeLimit = std::chrono::milliseconds(2000));
  ThumbnailCache(const ThumbnailCache&) = delete;
  ThumbnailCache& operator=(const ThumbnailCache&) = delete;
  ~ThumbnailCache() override;

  /// The thumbnail of a file, or null if none has been made yet. It is empty if the file can't be
  /// read within the time limit.
  const Thumbnail* Of(const std::string& path) const;
  /// Makes the thumbnails of these files in this order, and drops earlier requests. zoom is the
  /// number of physical pixels per logical pixel.
  void Request(std::deque<std::string> paths, int zoom);
  /// Drops all thumbnails, because the files may have changed.
  void Clear();

  /// Whether a thread is running, abandoned or not.
  static bool AreBeingMade();

 signals:
  void ThumbnailReady();

 private:
  struct Job;

  void MakeNext();
  void Start(const std::string& path);
  void Finish(const std::shared_ptr<Job>& job);
  /// Caches the thumbnail of the current job.
  void Keep(Thumbnail thumbnail);
  /// Abandons the current job, if there is one.
  void StopWaiting();

  QCache<QByteArray, Thumbnail> made_;  ///< by path; costs in kilobytes
  std::deque<std::string> requested_;
  ThumbnailSizes sizes_;
  std::shared_ptr<Job> job_;  ///< the current one; null if none
  QTimer timeLimit_;
};

}  // namespace morvane
