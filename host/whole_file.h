// A file that is either written whole or not at all. The text goes to a
// temporary file beside the target; only when every write and the close
// succeeded is it renamed over the target, so a full disk, a size limit or an
// error on the way leaves an existing file at the target as it was and no
// partial file behind. Targets that are not regular files (a device, a pipe)
// are written in place, with every write still checked.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

class WholeFile {
 public:
  explicit WholeFile(std::string_view target);
  ~WholeFile();  // drops the temporary file unless committed
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  bool isOpen() const { return file_ != nullptr; }
  bool failed() const { return errno_ != 0; }
  // The stream to write to; null when the file could not be opened.
  std::FILE* stream() const { return file_; }

  // Writes `text`; false (and the file is failed) when not all of it went.
  bool write(std::string_view text);
  // Marks the file as failed, with the cause in `error` (an errno value).
  void fail(int error);
  // Flushes, closes and moves the file into place; false when anything on
  // the way failed, and then the target is untouched.
  bool commit();

  // What went wrong, for a message: "No space left on device", ...
  std::string problem() const;

 private:
  std::string given_;   // the target as named, for messages
  std::string target_;  // the file replaced: links followed
  std::string temp_;  // empty when writing in place
  std::FILE* file_ = nullptr;
  int errno_ = 0;
  bool committed_ = false;
};

// Why the last failed write of `target` on this thread failed, or empty when
// its last write succeeded or there was none. Lets a message raised far from
// the write still name the cause.
std::string lastWriteProblem(std::string_view target);
