// SPDX-License-Identifier: BSD-3-Clause
// Data files: host arrays of every class written and read back through the
// level-5 file layer, and files that are missing, empty, cut short or garbage.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
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

  static std::vector<char> bytesOf(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  static void writeBytes(const std::string& file, const std::vector<char>& bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
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
  std::vector<char> bytes(116, ' ');
  bytes.resize(124, 0);
  for (const char c : {'\x01', '\x00', 'M', 'I'}) bytes.push_back(c);
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

// Each way a file can fail to open for reading says which it is.
TEST_F(DataFile, FilesThatDoNotOpenSayWhy) {
  using tg::level5::FileProblem;
  writeBytes(path("empty.orf"), {});
  writeBytes(path("text.orf"), std::vector<char>(300, 'a'));  // long enough for a header
  auto cut = bytesOf(writeSample("cut.orf"));
  cut.resize(cut.size() - 10);
  writeBytes(path("cut.orf"), cut);
  const struct {
    std::string file;
    FileProblem problem;
  } cases[] = {{path("missing.orf"), FileProblem::NoSuchFile},  {scratch_.dir().string(), FileProblem::NotReadable},
               {path("empty.orf"), FileProblem::NotLevel5},     {path("text.orf"), FileProblem::NotLevel5},
               {path("cut.orf"), FileProblem::Damaged}};
  for (const auto& c : cases) {
    EXPECT_FALSE(orfOpen(c.file, "r")) << c.file;
    std::vector<tg::level5::Variable> variables;
    bool swapped = false;
    FileProblem problem = FileProblem::None;
    EXPECT_FALSE(tg::level5::readFile(c.file, variables, swapped, &problem));
    EXPECT_EQ(problem, c.problem) << c.file << ": " << tg::level5::describe(problem);
  }
  EXPECT_FALSE(orfOpen(path("no/such/folder/x.orf"), "w"));
}

// Octave states the length of a short 2-D char array 4 bytes too long. A
// variable whose stated length runs past its data by less than one 8-byte
// unit reads as the data there is, stored plain or compressed; more is damage.
TEST_F(DataFile, OverstatedLengthOfTheLastVariableWithinOneUnitReads) {
  namespace l5 = tg::level5;
  const auto header = bytesOf(writeSample("header.orf"));
  for (const bool compressed : {false, true}) {
    for (const std::uint32_t over : {0u, 4u, 7u, 8u, 16u}) {
      l5::Bytes element;
      ASSERT_TRUE(l5::encodeArray(element, "x", oxCreateString("abcd").get()));
      std::uint32_t length;
      std::memcpy(&length, element.data() + 4, 4);
      length += over;
      std::memcpy(element.data() + 4, &length, 4);
      std::vector<char> file(header.begin(), header.begin() + 128);
      if (compressed) {
        uLongf size = compressBound(element.size());
        std::vector<unsigned char> packed(size);
        ASSERT_EQ(compress(packed.data(), &size, element.data(), element.size()), Z_OK);
        const std::uint32_t tag[2] = {l5::miCOMPRESSED, static_cast<std::uint32_t>(size)};
        file.insert(file.end(), reinterpret_cast<const char*>(tag), reinterpret_cast<const char*>(tag) + 8);
        file.insert(file.end(), packed.begin(), packed.begin() + static_cast<long>(size));
      } else {
        file.insert(file.end(), element.begin(), element.end());
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

TEST_F(DataFile, FieldlessStructsClaimingHugeCountsAreRefused) {
  // Such a struct takes no bytes per element; readers that walk its
  // elements would run for ever.
  const std::string file = path("fieldless.orf");
  auto out = orfOpen(file, "w");
  ASSERT_EQ(orfPutVariable(out.get(), "S", oxCreateStructArray(1u << 30, 1u << 30, {}).get()), 0);
  ASSERT_EQ(orfClose(out), 0);
  EXPECT_FALSE(orfOpen(file, "r"));
  // A small one is an ordinary value.
  out = orfOpen(file, "w");
  ASSERT_EQ(orfPutVariable(out.get(), "S", oxCreateStructArray(1, 3, {}).get()), 0);
  ASSERT_EQ(orfClose(out), 0);
  auto in = orfOpen(file, "r");
  ASSERT_TRUE(in);
  const auto back = orfGetVariable(in.get(), "S");
  ASSERT_TRUE(oxIsStruct(back.get()));
  EXPECT_EQ(back->numel(), 3u);
}

TEST_F(DataFile, TruncatedFilesEndCleanly) {
  const std::string file = writeSample("full.orf");
  const auto bytes = bytesOf(file);
  ASSERT_GT(bytes.size(), 200u);
  std::size_t readable = 0;
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    const std::string cut = path("cut.orf");
    writeBytes(cut, std::vector<char>(bytes.begin(), bytes.begin() + static_cast<long>(length)));
    auto f = orfOpen(cut, "r");
    if (!f) continue;
    // Every variable is either whole or missing: a cut-off variable does not read.
    const auto rows = orfGetVariable(f.get(), "Rows");
    if (rows) ++readable;
  }
  EXPECT_EQ(readable, 0u) << "a file cut inside its last variable must not give that variable";
}

TEST_F(DataFile, RandomBytesAndDamagedFilesEndCleanly) {
  std::mt19937 random(20261121);
  std::uniform_int_distribution<int> byte(0, 255);
  // Pure noise, with and without a valid header in front.
  const auto good = bytesOf(writeSample("good.orf"));
  for (int round = 0; round < 200; ++round) {
    std::vector<char> noise(16 + random() % 2000);
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
