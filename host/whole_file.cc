#include "host/whole_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

namespace {

struct LastProblem {
  std::string target;
  std::string problem;
};

LastProblem& lastProblem() {
  thread_local LastProblem last;
  return last;
}

void note(const std::string& target, std::string problem) {
  lastProblem() = {target, std::move(problem)};
}

// The mode a new file gets from the process's umask.
mode_t newFileMode() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

}  // namespace

WholeFile::WholeFile(std::string_view target) : given_(target), target_(target) {
  if (target_.empty()) {
    fail(ENOENT);
    return;
  }
  namespace fs = std::filesystem;
  std::error_code ec;
  fs::path place(target_);
  // A link is followed, so that the file it names is replaced, not the link.
  if (fs::is_symlink(fs::symlink_status(place, ec))) place = fs::weakly_canonical(place, ec);
  if (ec) place = target_;
  struct stat existing {};
  const bool exists = ::stat(place.c_str(), &existing) == 0;
  if (exists && !S_ISREG(existing.st_mode)) {
    file_ = std::fopen(place.c_str(), "w");
    if (!file_) fail(errno);
    return;
  }
  const fs::path dir = place.has_parent_path() ? place.parent_path() : fs::path(".");
  std::string pattern = (dir / ("." + place.filename().string() + ".partial-XXXXXX")).string();
  const int fd = ::mkstemp(pattern.data());
  if (fd < 0) {
    fail(errno);
    return;
  }
  temp_ = std::move(pattern);
  target_ = place.string();
  if (::fchmod(fd, exists ? existing.st_mode & 07777 : newFileMode()) != 0 || !(file_ = ::fdopen(fd, "w"))) {
    fail(errno);
    ::close(fd);
  }
}

WholeFile::~WholeFile() {
  if (file_) std::fclose(file_);
  if (!committed_ && !temp_.empty()) ::unlink(temp_.c_str());
}

bool WholeFile::write(std::string_view text) {
  if (!file_ || failed()) return false;
  if (std::fwrite(text.data(), 1, text.size(), file_) == text.size()) return true;
  fail(errno != 0 ? errno : EIO);
  return false;
}

void WholeFile::fail(int error) {
  if (errno_ == 0) errno_ = error != 0 ? error : EIO;
  note(given_, problem());
}

bool WholeFile::commit() {
  if (committed_) return true;
  if (!file_) {
    fail(EBADF);
    return false;
  }
  if (!failed() && std::fflush(file_) != 0) fail(errno);
  const int closed = std::fclose(file_);
  file_ = nullptr;
  if (!failed() && closed != 0) fail(errno);
  if (!failed() && !temp_.empty() && std::rename(temp_.c_str(), target_.c_str()) != 0) fail(errno);
  if (failed()) return false;
  committed_ = true;
  note(given_, "");
  return true;
}

std::string WholeFile::problem() const { return errno_ != 0 ? std::strerror(errno_) : std::string(); }

std::string lastWriteProblem(std::string_view target) {
  const auto& last = lastProblem();
  return last.target == target ? last.problem : std::string();
}
