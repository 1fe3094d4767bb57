#include "host/data_file.h"

#include <zlib.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "host/data_file_rows.h"
#include "host/level5_check.h"
#include "host/level5_decoder.h"
#include "host/level5_encoder.h"
#include "host/whole_file.h"

namespace l5 = tg::level5;

// An open data file. For reading, the file is read and checked at opening
// and its variables kept (inflated); for writing, each variable is compressed
// and appended as it is put, to a file that takes the name only when it is
// closed after every write succeeded (see WholeFile).
class orfFile {
 public:
  explicit orfFile(std::string_view path) : whole_(std::make_unique<WholeFile>(path)), out_(whole_->stream()) {}
  orfFile(std::vector<l5::Variable> variables, bool swapped)
      : variables_(std::move(variables)), swapped_(swapped), reading_(true) {}
  orfFile(const orfFile&) = delete;
  orfFile& operator=(const orfFile&) = delete;
  ~orfFile() { close(); }

  int put(std::string_view name, const oxArray* array) {
    if (!out_ || failed_) return -1;
    l5::Bytes element;
    element.reserve(l5::encodedSize(name, array));
    if (!l5::encodeArray(element, name, array)) return -1;
    // A failed write (a full disk, a size limit) shows at the latest when
    // the buffer is flushed; the file is then no longer to be trusted.
    if (!writeCompressed(element) || std::fflush(out_) != 0) return fail();
    return 0;
  }

  // A failed write: the file is no longer to be trusted.
  int fail() {
    whole_->fail(errno);
    failed_ = true;
    return -1;
  }

  int putRows(const std::function<bool(l5::RowDeflater&)>& write) {
    if (!out_ || failed_) return -1;
    const long tagAt = std::ftell(out_);
    std::uint32_t tag[2] = {l5::miCOMPRESSED, 0};
    if (tagAt < 0 || std::fwrite(tag, 1, sizeof tag, out_) != sizeof tag) return fail();
    std::uint64_t written = 0;
    l5::RowDeflater deflater([&](const unsigned char* data, std::size_t size) {
      written += size;
      return std::fwrite(data, 1, size, out_) == size;
    });
    if (!write(deflater)) {
      failed_ = true;
      return -1;
    }
    if (!deflater.finish() || written > std::numeric_limits<std::uint32_t>::max()) return fail();
    tag[1] = static_cast<std::uint32_t>(written);
    const long end = std::ftell(out_);
    if (end < 0 || std::fseek(out_, tagAt, SEEK_SET) != 0 || std::fwrite(tag, 1, sizeof tag, out_) != sizeof tag ||
        std::fseek(out_, end, SEEK_SET) != 0 || std::fflush(out_) != 0)
      return fail();
    return 0;
  }

  oxArrayPtr get(std::string_view name) const {
    const l5::Variable* v = find(name);
    if (!v) return nullptr;
    if (v->compressed.empty()) return l5::decodeElement(v->element, swapped_);
    l5::Bytes element;
    return l5::inflateDeferred(v->compressed, swapped_, element) ? l5::decodeElement(element, swapped_) : nullptr;
  }

  const l5::Variable* find(std::string_view name) const {
    if (!reading_) return nullptr;
    // The first variable of a name counts, as for the host's own loader.
    const auto it = std::find_if(variables_.begin(), variables_.end(),
                                 [&](const l5::Variable& v) { return v.name == name; });
    return it == variables_.end() ? nullptr : &*it;
  }
  bool swapped() const { return swapped_; }

  int close() {
    if (reading_) {
      reading_ = false;
      variables_.clear();
      return 0;
    }
    if (!out_) return -1;
    out_ = nullptr;
    return !failed_ && whole_->commit() ? 0 : -1;
  }

  bool writeHeader() {
    std::string text = "tempogauge trace file, level 5 data file";
    text.resize(116, ' ');
    unsigned char header[128];
    std::memcpy(header, text.data(), 116);
    std::memset(header + 116, 0, 8);  // no subsystem data
    const std::uint16_t version = 0x0100;
    std::memcpy(header + 124, &version, 2);
    // The endian mark reads "IM" when written by a little-endian machine.
    const char* mark = std::endian::native == std::endian::little ? "IM" : "MI";
    std::memcpy(header + 126, mark, 2);
    // Not flushed here: a device that takes no data fails at the first put.
    if (!out_ || !whole_->write({reinterpret_cast<const char*>(header), sizeof header})) {
      failed_ = true;
      return false;
    }
    return true;
  }

 private:
  // Writes `element` as one compressed element: a tag whose length is
  // filled in once the stream is written, then the zlib stream, made in
  // pieces so that no second buffer of the whole size is needed.
  bool writeCompressed(const l5::Bytes& element) {
    const long tagAt = std::ftell(out_);
    std::uint32_t tag[2] = {l5::miCOMPRESSED, 0};
    if (tagAt < 0 || std::fwrite(tag, 1, sizeof tag, out_) != sizeof tag) return false;
    z_stream z{};
    // The fastest level: trace rows are repetitive, and it keeps a save of
    // many points well under a second.
    if (deflateInit(&z, Z_BEST_SPEED) != Z_OK) return false;
    const std::unique_ptr<z_stream, int (*)(z_stream*)> guard(&z, &deflateEnd);
    std::vector<unsigned char> chunk(1 << 20);
    std::uint64_t written = 0;
    std::size_t at = 0;
    int status = Z_OK;
    while (status != Z_STREAM_END) {
      const std::size_t piece = std::min<std::size_t>(element.size() - at, 1u << 30);
      z.next_in = const_cast<unsigned char*>(element.data() + at);
      z.avail_in = static_cast<uInt>(piece);
      const bool last = at + piece == element.size();
      do {
        z.next_out = chunk.data();
        z.avail_out = static_cast<uInt>(chunk.size());
        status = deflate(&z, last ? Z_FINISH : Z_NO_FLUSH);
        if (status == Z_STREAM_ERROR) return false;
        const std::size_t produced = chunk.size() - z.avail_out;
        if (std::fwrite(chunk.data(), 1, produced, out_) != produced) return false;
        written += produced;
      } while (z.avail_out == 0);
      at += piece;
      if (!last && z.avail_in != 0) return false;
    }
    if (written > std::numeric_limits<std::uint32_t>::max()) return false;
    tag[1] = static_cast<std::uint32_t>(written);
    const long end = std::ftell(out_);
    return end >= 0 && std::fseek(out_, tagAt, SEEK_SET) == 0 && std::fwrite(tag, 1, sizeof tag, out_) == sizeof tag &&
           std::fseek(out_, end, SEEK_SET) == 0;
  }

  std::unique_ptr<WholeFile> whole_;
  std::FILE* out_ = nullptr;
  bool failed_ = false;
  std::vector<l5::Variable> variables_;
  bool swapped_ = false;
  bool reading_ = false;
};

void orfFileCloser::operator()(orfFile* file) const { std::default_delete<orfFile>()(file); }

orfFilePtr orfOpen(std::string_view name, std::string_view mode) {
  const std::string path(name);
  if (path.empty()) return nullptr;
  if (mode == "r") {
    std::vector<l5::Variable> variables;
    bool swapped = false;
    // Variables of more than this are read through a window when asked for
    // (the raw points of long traces), not inflated whole at opening.
    constexpr std::uint64_t kInflatedWhole = std::uint64_t{64} << 20;
    if (!l5::readFile(path, variables, swapped, nullptr, kInflatedWhole)) return nullptr;
    return orfFilePtr(new orfFile(std::move(variables), swapped));
  }
  if (mode == "w") {
    orfFilePtr file(new orfFile(path));
    if (!file->writeHeader()) return nullptr;
    return file;
  }
  return nullptr;
}

int orfPutRows(orfFile* file, const std::function<bool(l5::RowDeflater&)>& write) {
  return file ? file->putRows(write) : -1;
}

orfHeldVariable orfVariableHeld(orfFile* file, std::string_view name) {
  orfHeldVariable held;
  const l5::Variable* v = file && !name.empty() ? file->find(name) : nullptr;
  if (!v) return held;
  held.swapped = file->swapped();
  if (v->compressed.empty()) held.element = &v->element;
  else held.compressed = &v->compressed;
  return held;
}

int orfPutVariable(orfFile* file, std::string_view name, const oxArray* array) {
  if (!file || !array || name.empty()) return -1;
  return file->put(name, array);
}

oxArrayPtr orfGetVariable(orfFile* file, std::string_view name) {
  if (!file || name.empty()) return nullptr;
  return file->get(name);
}

int orfClose(orfFilePtr& file) {
  if (!file) return -1;
  const int status = file->close();
  file.reset();
  return status;
}
