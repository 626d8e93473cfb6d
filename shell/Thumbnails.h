#pragma once

#include <QCache>
#include <QTimer>
#include <deque>
#include <memory>
#include <string>

#include "platform/Thumbnail.h"

namespace morvane {

/// The thumbnails of picture files. They are made beside the window, one after the other, and kept
/// in a small part of the memory.
class Thumbnails : public QObject {
  Q_OBJECT

 public:
  Thumbnails();
  Thumbnails(const Thumbnails&) = delete;
  Thumbnails& operator=(const Thumbnails&) = delete;
  ~Thumbnails() override;

  /// The thumbnail of a file, or null where none was made yet. One of a file that can't be read, or
  /// not within two seconds, is empty.
  const Thumbnail* Of(const std::string& path) const;
  /// Makes those of these files, in this order, for a display of that zoom, and no others.
  void Want(std::deque<std::string> paths, int zoom);
  /// Forgets all of them: the files may have changed.
  void Clear();

  /// Whether any is being made, given up or not.
  static bool AreBeingMade();

 signals:
  void Made();

 private:
  struct Job;

  void MakeNext();
  void Start(const std::string& path);
  void Finish(const std::shared_ptr<Job>& job);
  void Keep(Thumbnail thumbnail);
  void StopWaiting();

  QCache<QByteArray, Thumbnail> made_;  ///< by path; costs in kilobytes
  std::deque<std::string> wanted_;
  int zoom_ = 1;
  std::shared_ptr<Job> job_;  ///< that is waited for
  QTimer patience_;
};

}  // namespace morvane
