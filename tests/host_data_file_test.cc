// SPDX-License-Identifier: BSD-3-Clause
// Data files: host arrays of every class written and read back through the
// level-5 file layer, and files that are missing, empty, cut short or garbage.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <matio.h>
#include <zlib.h>

#include "host/data_file.h"
#include "host/level5_check.h"
#include "host/level5_encoder.h"
#include "host_array_text.h"
#include "scratch_files.h"

namespace fs = std::filesystem;

namespace {

class DataFile : public ::testing::Test {
 protected:
  std::string path(const std::string& name) const { return scratch_.path(name); }

  static void writeBytes(const std::string& file, std::string_view bytes) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
  }
  // The 128 bytes before the first element, in either byte order.
  static std::string header(bool bigEndian = false) {
    return std::string(116, ' ') + std::string(8, '\0') + std::string(bigEndian ? "\x01\x00MI" : "\x00\x01IM", 4);
  }
  static std::string tag(std::uint32_t type, std::uint32_t bytes) {
    return std::string(reinterpret_cast<const char*>(&type), 4) + std::string(reinterpret_cast<const char*>(&bytes), 4);
  }

  // Writes a trace-like cell array of rows, as the store does.
  std::string writeSample(const std::string& name, std::size_t rows = 20) {
    auto all = oxCreateCellMatrix(1, rows);
    for (std::size_t r = 0; r < rows; ++r) {
      auto row = oxCreateCellMatrix(1, 4);
      row->setCell(0, oxCreateString("1"));
      row->setCell(1, oxCreateInt32Scalar(static_cast<std::int32_t>(r % 3)));
      row->setCell(2, oxCreateString("phase " + std::to_string(r)));
      row->setCell(3, oxCreateDoubleScalar(r * 0.5));
      all->setCell(r, std::move(row));
    }
    const std::string file = path(name);
    auto f = orfOpen(file, "w");
    EXPECT_TRUE(f);
    EXPECT_EQ(orfPutVariable(f.get(), "Root", oxCreateString("/opt/host").get()), 0);
    EXPECT_EQ(orfPutVariable(f.get(), "Rows", all.get()), 0);
    EXPECT_EQ(orfClose(f), 0);
    return file;
  }

  // Opening and reading must end, with or without a result; what comes back
  // must be a well-formed array.
  static void readEverything(const std::string& file) {
    auto f = orfOpen(file, "r");
    if (!f) return;
    for (const char* name : {"Rows", "Root", "Missing"}) {
      const auto a = orfGetVariable(f.get(), name);
      if (a) {
        EXPECT_LE(a->numel(), 1000000u);
      }
    }
    orfClose(f);
  }

  tgtest::ScratchDir scratch_{"tg_data_file"};
};

TEST_F(DataFile, EveryClassComesBackAsWritten) {
  auto s = oxCreateStructArray(1, 1, {"d", "i", "u", "l", "c", "e", "cells", "obj"});
  auto d = oxCreateDoubleMatrix(2, 3);
  for (std::size_t i = 0; i < 6; ++i) d->doubles()[i] = i * 1.25 - 2;
  const std::vector<double> values = d->doubles();
  oxSetFieldByNumber(s.get(), 0, 0, std::move(d));
  oxSetFieldByNumber(s.get(), 0, 1, oxCreateInt32Scalar(-7));
  oxSetFieldByNumber(s.get(), 0, 2, oxCreateUInt32Scalar(4000000000u));
  oxSetFieldByNumber(s.get(), 0, 3, oxCreateLogicalScalar(true));
  oxSetFieldByNumber(s.get(), 0, 4, oxCreateString("phase \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"));
  oxSetFieldByNumber(s.get(), 0, 5, oxCreateString(""));
  auto cells = oxCreateCellMatrix(1, 3);
  cells->setCell(0, oxCreateCellMatrix(1, 0));
  cells->setCell(2, oxCreateString("x"));  // cell 1 stays null
  oxSetFieldByNumber(s.get(), 0, 6, std::move(cells));
  auto obj = oxCreateObject("GaugeKit.Thing");
  obj->addField("value");
  oxSetFieldByNumber(obj.get(), 0, 0, oxCreateDoubleScalar(3));
  oxSetFieldByNumber(s.get(), 0, 7, std::move(obj));

  const std::string file = path("all.orf");
  auto out = orfOpen(file, "w");
  ASSERT_TRUE(out);
  ASSERT_EQ(orfPutVariable(out.get(), "S", s.get()), 0);
  ASSERT_EQ(orfClose(out), 0);
  EXPECT_FALSE(out);

  auto in = orfOpen(file, "r");
  ASSERT_TRUE(in);
  const auto back = orfGetVariable(in.get(), "S");
  ASSERT_TRUE(oxIsStruct(back.get()));
  // A null cell is written as an empty double; objects have no file form of
  // their own and come back as structs.
  EXPECT_EQ(tgtest::arrayText(back.get()),
            "d=-2 i=i-7 u=u4000000000 l=true c='phase \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80' e=''\n"
            "cells={{} [] 'x'} obj=value=3");
  const oxArray* bd = oxGetField(back.get(), 0, "d");
  EXPECT_EQ(bd->rows(), 2u);
  EXPECT_EQ(bd->cols(), 3u);
  EXPECT_EQ(bd->doubles(), values);
  EXPECT_EQ(oxGetField(back.get(), 0, "cells")->cell(1)->classID(), oxDOUBLE_CLASS);
  EXPECT_FALSE(orfGetVariable(in.get(), "NotThere"));
  EXPECT_EQ(orfClose(in), 0);
}

// matio, an independent implementation of the format, reads what we write
// and writes what we read.
TEST_F(DataFile, AnotherImplementationAgreesBothWays) {
  const std::string ours = writeSample("ours.orf", 5);
  mat_t* mat = Mat_Open(ours.c_str(), MAT_ACC_RDONLY);
  ASSERT_NE(mat, nullptr);
  matvar_t* rows = Mat_VarRead(mat, "Rows");
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(rows->class_type, MAT_C_CELL);
  EXPECT_EQ(rows->dims[1], 5u);
  matvar_t* row = Mat_VarGetCell(rows, 4);
  ASSERT_NE(row, nullptr);
  matvar_t* type = Mat_VarGetCell(row, 1);
  ASSERT_TRUE(type && type->class_type == MAT_C_INT32);
  EXPECT_EQ(*static_cast<const std::int32_t*>(type->data), 1);
  matvar_t* figure = Mat_VarGetCell(row, 3);
  ASSERT_TRUE(figure && figure->class_type == MAT_C_DOUBLE);
  EXPECT_EQ(*static_cast<const double*>(figure->data), 2.0);
  Mat_VarFree(rows);
  Mat_Close(mat);

  const std::string theirs = path("theirs.orf");
  mat_t* out = Mat_CreateVer(theirs.c_str(), nullptr, MAT_FT_MAT5);
  ASSERT_NE(out, nullptr);
  std::size_t dims[2] = {1, 3};
  double values[3] = {1.5, -2, 1e300};
  matvar_t* v = Mat_VarCreate("values", MAT_C_DOUBLE, MAT_T_DOUBLE, 2, dims, values, 0);
  const char16_t text[3] = {u'\u00e9', u't', u'\u00e9'};
  matvar_t* t = Mat_VarCreate("text", MAT_C_CHAR, MAT_T_UTF16, 2, dims, const_cast<char16_t*>(text), 0);
  EXPECT_EQ(Mat_VarWrite(out, v, MAT_COMPRESSION_ZLIB), 0);
  EXPECT_EQ(Mat_VarWrite(out, t, MAT_COMPRESSION_NONE), 0);
  Mat_VarFree(v);
  Mat_VarFree(t);
  Mat_Close(out);
  auto in = orfOpen(theirs, "r");
  ASSERT_TRUE(in);
  const auto back = orfGetVariable(in.get(), "values");
  ASSERT_TRUE(back && back->classID() == oxDOUBLE_CLASS);
  EXPECT_EQ(back->doubles(), (std::vector<double>{1.5, -2, 1e300}));
  EXPECT_EQ(oxArrayToStdString(orfGetVariable(in.get(), "text").get()), "\xC3\xA9t\xC3\xA9");
}

// A file in the other byte order ("MI"), uncompressed: a 1x2 double, a 1x2
// char array and a 1x1 cell holding an int32 in the short element form. Each
// array is a tag (14, length) then flags, dimensions, name and data elements.
TEST_F(DataFile, FilesOfTheOtherByteOrderRead) {
  const std::uint32_t words[] = {
      14, 72,  6, 8, 6, 0,   5, 8, 1, 2,  1, 1, 'd' << 24, 0,  9, 16, 0x3FF80000, 0, 0xC0080000, 0,  // 1.5, -3
      14, 64,  6, 8, 4, 0,   5, 8, 1, 2,  1, 1, 'c' << 24, 0,  17, 4, 0x006800E9, 0,                 // "h", U+00E9
      14, 104, 6, 8, 1, 0,   5, 8, 1, 1,  1, 1, 'k' << 24, 0,
      14, 48,  6, 8, 12, 0,  5, 8, 1, 1,  1, 0,  5 | 4 << 16, static_cast<std::uint32_t>(-7)};
  std::string bytes = header(true);
  for (const std::uint32_t w : words)
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<char>(w >> shift));
  writeBytes(path("big.orf"), bytes);

  auto in = orfOpen(path("big.orf"), "r");
  ASSERT_TRUE(in);
  const auto d = orfGetVariable(in.get(), "d");
  ASSERT_TRUE(d && d->classID() == oxDOUBLE_CLASS);
  EXPECT_EQ(d->doubles(), (std::vector<double>{1.5, -3}));
  EXPECT_EQ(oxArrayToStdString(orfGetVariable(in.get(), "c").get()), "h\xC3\xA9");
  EXPECT_EQ(tgtest::arrayText(orfGetVariable(in.get(), "k").get()), "{i-7}");
}

TEST_F(DataFile, HandlesRefuseTheWrongDirection) {
  const std::string file = writeSample("sample.orf", 1);
  auto r = orfOpen(file, "r");
  ASSERT_TRUE(r);
  EXPECT_NE(orfPutVariable(r.get(), "x", oxCreateDoubleScalar(1).get()), 0);
  auto w = orfOpen(path("new.orf"), "w");
  ASSERT_TRUE(w);
  EXPECT_FALSE(orfGetVariable(w.get(), "Rows"));
  EXPECT_NE(orfPutVariable(w.get(), "x", nullptr), 0);
  EXPECT_NE(orfPutVariable(w.get(), "", oxCreateDoubleScalar(1).get()), 0);
  EXPECT_NE(orfPutVariable(nullptr, "x", oxCreateDoubleScalar(1).get()), 0);
  EXPECT_FALSE(orfOpen(file, "a"));
  EXPECT_FALSE(orfOpen("", "r"));
  orfFilePtr none;
  EXPECT_NE(orfClose(none), 0);
}

// Each way a file can fail to open for reading says which it is. Files whose
// bytes can't be what they claim are refused before they are read whole:
// sparse files of 2 GB (taking no disk), and elements that state more than
// the file holds.
TEST_F(DataFile, FilesThatDoNotOpenSayWhy) {
  using tg::level5::FileProblem;
  std::string cut = tgtest::readFile(writeSample("sample.orf"));
  cut.resize(cut.size() - 10);
  constexpr std::uintmax_t k2GB = std::uintmax_t{2} << 30;
  const struct {
    std::string what;
    std::string bytes;
    std::uintmax_t size;  // extended with zeros (a hole) to this size
    FileProblem problem;
  } cases[] = {
      {"missing", "", 0, FileProblem::NoSuchFile},
      {"folder", "", 0, FileProblem::NotReadable},
      {"empty", "", 0, FileProblem::NotLevel5},
      {"text", std::string(300, 'a'), 0, FileProblem::NotLevel5},  // long enough for a header
      {"cut", cut, 0, FileProblem::Damaged},
      {"zeros", "", k2GB, FileProblem::NotLevel5},
      {"header, then zeros", header(), k2GB, FileProblem::Damaged},
      {"array claiming 4 GB", header() + tag(tg::level5::miMATRIX, 0xFFFFFFF0u) + std::string(64, '\0'), 0,
       FileProblem::Damaged},
      {"compressed claiming 4 GB", header() + tag(tg::level5::miCOMPRESSED, 0xFFFFFFF0u), 0, FileProblem::Damaged},
      {"compressed junk", header() + tag(tg::level5::miCOMPRESSED, 16) + std::string(16, 'j'), 0,
       FileProblem::Damaged},
  };
  for (const auto& c : cases) {
    const std::string file = path(c.what);
    if (c.what == "folder") {
      fs::create_directory(file);
    } else if (c.what != "missing") {
      writeBytes(file, c.bytes);
      if (c.size) fs::resize_file(file, c.size);
    }
    EXPECT_FALSE(orfOpen(file, "r")) << c.what;
    std::vector<tg::level5::Variable> variables;
    bool swapped = false;
    FileProblem problem = FileProblem::None;
    EXPECT_FALSE(tg::level5::readFile(file, variables, swapped, &problem));
    EXPECT_EQ(problem, c.problem) << c.what << ": " << tg::level5::describe(problem);
    fs::remove(file);
  }
  EXPECT_FALSE(orfOpen(path("no/such/folder/x.orf"), "w"));
}

// Integers stored as doubles beyond their class's range, or NaN, only come
// from damaged files: they read as 0, as an integer cell of the wrong form.
TEST_F(DataFile, OutOfRangeIntegersReadAsZero) {
  namespace l5 = tg::level5;
  const auto element = [](std::uint32_t type, std::string data) {
    const auto size = static_cast<std::uint32_t>(data.size());
    data.resize((data.size() + 7) / 8 * 8, '\0');
    return tag(type, size) + data;
  };
  const auto array = [&](std::uint32_t cls, const char* name, std::vector<double> d) {
    const std::uint32_t flags[2] = {cls, 0}, dims[2] = {1, static_cast<std::uint32_t>(d.size())};
    return element(l5::miMATRIX, element(l5::miUINT32, std::string(reinterpret_cast<const char*>(flags), 8)) +
                                     element(l5::miINT32, std::string(reinterpret_cast<const char*>(dims), 8)) +
                                     element(l5::miINT8, name) +
                                     element(l5::miDOUBLE, std::string(reinterpret_cast<const char*>(d.data()),
                                                                       d.size() * 8)));
  };
  const double nan = std::numeric_limits<double>::quiet_NaN();
  writeBytes(path("damaged.orf"), header() + array(l5::mxINT32, "v", {1e300, -3e9, nan, -7.9, 2147483647.0}) +
                                      array(l5::mxUINT32, "w", {-1.0, 5e9, 4294967295.0}));
  auto f = orfOpen(path("damaged.orf"), "r");
  ASSERT_TRUE(f);
  const auto v = orfGetVariable(f.get(), "v");
  const auto w = orfGetVariable(f.get(), "w");
  ASSERT_TRUE(v && w);
  EXPECT_EQ(v->int32s(), (std::vector<std::int32_t>{0, 0, 0, -7, 2147483647}));
  EXPECT_EQ(w->uint32s(), (std::vector<std::uint32_t>{0, 0, 4294967295u}));
}

// Octave states the length of a short 2-D char array 4 bytes too long. A
// variable whose stated length runs past its data by less than one 8-byte
// unit reads as the data there is, stored plain or compressed; more is damage.
TEST_F(DataFile, OverstatedLengthOfTheLastVariableWithinOneUnitReads) {
  namespace l5 = tg::level5;
  for (const bool compressed : {false, true}) {
    for (const std::uint32_t over : {0u, 4u, 7u, 8u, 16u}) {
      l5::Bytes element;
      ASSERT_TRUE(l5::encodeArray(element, "x", oxCreateString("abcd").get()));
      std::uint32_t length;
      std::memcpy(&length, element.data() + 4, 4);
      length += over;
      std::memcpy(element.data() + 4, &length, 4);
      std::string file = header();
      if (compressed) {
        uLongf size = compressBound(element.size());
        std::string packed(size, '\0');
        ASSERT_EQ(compress(reinterpret_cast<Bytef*>(packed.data()), &size, element.data(), element.size()), Z_OK);
        file += tag(l5::miCOMPRESSED, static_cast<std::uint32_t>(size)) + packed.substr(0, size);
      } else {
        file.append(element.begin(), element.end());
      }
      writeBytes(path("over.orf"), file);
      auto in = orfOpen(path("over.orf"), "r");
      EXPECT_EQ(static_cast<bool>(in), over < 8) << "compressed " << compressed << ", " << over << " bytes over";
      if (in) {
        EXPECT_EQ(oxArrayToStdString(orfGetVariable(in.get(), "x").get()), "abcd");
      }
    }
  }
}

// Such a struct takes no bytes per element; readers that walk its elements
// would run for ever. A small one is an ordinary value.
TEST_F(DataFile, FieldlessStructsClaimingHugeCountsAreRefused) {
  const std::string file = path("fieldless.orf");
  for (const std::size_t n : {std::size_t{1} << 30, std::size_t{3}}) {
    auto out = orfOpen(file, "w");
    ASSERT_EQ(orfPutVariable(out.get(), "S", oxCreateStructArray(n == 3 ? 1 : n, n, {}).get()), 0);
    ASSERT_EQ(orfClose(out), 0);
    EXPECT_EQ(static_cast<bool>(orfOpen(file, "r")), n == 3) << n;
  }
  auto in = orfOpen(file, "r");
  ASSERT_TRUE(in);
  const auto back = orfGetVariable(in.get(), "S");
  ASSERT_TRUE(oxIsStruct(back.get()));
  EXPECT_EQ(back->numel(), 3u);
}

TEST_F(DataFile, TruncatedFilesEndCleanly) {
  const std::string file = writeSample("full.orf");
  const auto bytes = tgtest::readFile(file);
  ASSERT_GT(bytes.size(), 200u);
  std::size_t readable = 0;
  // Every variable is either whole or missing: a cut-off variable does not read.
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    writeBytes(path("cut.orf"), std::string_view(bytes).substr(0, length));
    auto f = orfOpen(path("cut.orf"), "r");
    if (f && orfGetVariable(f.get(), "Rows")) ++readable;
  }
  EXPECT_EQ(readable, 0u) << "a file cut inside its last variable must not give that variable";
}

TEST_F(DataFile, RandomBytesAndDamagedFilesEndCleanly) {
  std::mt19937 random(20261121);
  std::uniform_int_distribution<int> byte(0, 255);
  // Pure noise, with and without a valid header in front.
  const auto good = tgtest::readFile(writeSample("good.orf"));
  for (int round = 0; round < 200; ++round) {
    std::string noise(16 + random() % 2000, '\0');
    for (auto& b : noise) b = static_cast<char>(byte(random));
    if (round % 2 == 1 && noise.size() > 128) std::copy(good.begin(), good.begin() + 128, noise.begin());
    writeBytes(path("noise.orf"), noise);
    readEverything(path("noise.orf"));
  }
  // A real file with a few bytes changed after the header.
  for (int round = 0; round < 400; ++round) {
    auto damaged = good;
    const int flips = 1 + round % 4;
    for (int k = 0; k < flips; ++k)
      damaged[128 + random() % (damaged.size() - 128)] = static_cast<char>(byte(random));
    writeBytes(path("damaged.orf"), damaged);
    readEverything(path("damaged.orf"));
  }
}

}  // namespace
