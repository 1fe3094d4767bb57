#include "host/data_file.h"

#include <matio.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <string>
#include <utility>

#include "host/level5_check.h"
#include "host/mat_variable.h"

class orfFile {
 public:
  orfFile(mat_t* mat, bool writable, std::string path) : mat_(mat), writable_(writable), path_(std::move(path)) {}
  orfFile(const orfFile&) = delete;
  orfFile& operator=(const orfFile&) = delete;
  ~orfFile() { close(); }

  mat_t* mat() const { return mat_; }
  bool writable() const { return writable_; }
  const std::string& path() const { return path_; }
  // Variables written so far; false once a write has failed.
  std::size_t written = 0;
  bool failed = false;
  int close() {
    if (!mat_) return -1;
    const int status = Mat_Close(mat_);
    mat_ = nullptr;
    return status;
  }

 private:
  mat_t* mat_;
  bool writable_;
  std::string path_;
};

void orfFileCloser::operator()(orfFile* file) const { std::default_delete<orfFile>()(file); }

namespace {

// matio reports problems of damaged files on standard error; the callers
// here answer with a null result instead, so its messages are dropped.
void quietMatioLog(int, char*) {}

void initMatioLog() {
  static std::once_flag once;
  std::call_once(once, [] { Mat_LogInitFunc("tempogauge", &quietMatioLog); });
}

constexpr const char* kHeaderText = "tempogauge trace file (level 5 data file)";

}  // namespace

orfFilePtr orfOpen(std::string_view name, std::string_view mode) {
  initMatioLog();
  const std::string path(name);
  if (path.empty()) return nullptr;
  if (mode == "r") {
    if (!tgLevel5FileIsSound(path)) return nullptr;
    mat_t* mat = Mat_Open(path.c_str(), MAT_ACC_RDONLY);
    if (!mat) return nullptr;
    if (Mat_GetVersion(mat) != MAT_FT_MAT5) {
      Mat_Close(mat);
      return nullptr;
    }
    return orfFilePtr(new orfFile(mat, false, path));
  }
  if (mode == "w") {
    mat_t* mat = Mat_CreateVer(path.c_str(), kHeaderText, MAT_FT_MAT5);
    if (!mat) return nullptr;
    return orfFilePtr(new orfFile(mat, true, path));
  }
  return nullptr;
}

int orfPutVariable(orfFile* file, std::string_view name, const oxArray* array) {
  if (!file || !file->mat() || !file->writable() || !array || name.empty()) return -1;
  MatVariablePtr variable = tgArrayToMatVariable(name, array);
  if (!variable || file->failed) return -1;
  if (Mat_VarWrite(file->mat(), variable.get(), MAT_COMPRESSION_ZLIB) != 0) {
    file->failed = true;
    return -1;
  }
  // The library flushes a compressed variable when it has written it, but
  // does not report a failed write: the file must now end with this variable.
  std::size_t count = 0;
  if (!tgLevel5ElementCount(file->path(), count) || count != ++file->written) {
    file->failed = true;
    return -1;
  }
  return 0;
}

oxArrayPtr orfGetVariable(orfFile* file, std::string_view name) {
  if (!file || !file->mat() || file->writable() || name.empty()) return nullptr;
  const std::string n(name);
  MatVariablePtr variable(Mat_VarRead(file->mat(), n.c_str()));
  return tgMatVariableToArray(variable.get());
}

int orfClose(orfFilePtr& file) {
  if (!file) return -1;
  const bool failedBefore = file->failed;
  const int status = file->close();
  file.reset();
  return status != 0 || failedBefore ? -1 : 0;
}
