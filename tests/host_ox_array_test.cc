// SPDX-License-Identifier: BSD-3-Clause
// Host arrays: what the row readers and writers rely on beyond plain storage:
// the host's shape of the empty text, misuse that throws instead of writing
// out of bounds, deep copies, column-major subscripts and the class tests.
#include <gtest/gtest.h>

#include <stdexcept>

#include "host/ox_array.h"

TEST(OxArray, EmptyTextIsZeroByZeroAndMisuseThrows) {
  EXPECT_EQ(oxCreateString("abc")->cols(), 3u);
  EXPECT_EQ(oxCreateString("")->rows(), 0u);
  EXPECT_EQ(oxCreateString("")->cols(), 0u);
  const auto s = oxCreateString("abc");
  EXPECT_TRUE(static_cast<const oxArray&>(*s).doubles().empty());  // another class's storage reads as empty
  EXPECT_THROW(s->doubles(), std::logic_error);
  EXPECT_THROW(oxCreateCellMatrix(1, 1)->addField("f"), std::logic_error);
  auto cells = oxCreateCellMatrix(1, 3);
  EXPECT_EQ(oxGetCell(cells.get(), 3), nullptr);
  EXPECT_EQ(oxGetCell(nullptr, 0), nullptr);
  EXPECT_THROW(oxSetCell(cells.get(), 3, oxCreateDoubleScalar(1)), std::out_of_range);
  EXPECT_THROW(oxSetCell(oxCreateDoubleScalar(1).get(), 0, nullptr), std::logic_error);
  EXPECT_THROW(oxSetCell(nullptr, 0, nullptr), std::invalid_argument);
}

TEST(OxArray, StructFieldsByNumberAndName) {
  auto s = oxCreateStructArray(1, 2, {"a", "b"});
  oxSetFieldByNumber(s.get(), 1, 0, oxCreateDoubleScalar(7));
  oxSetField(s.get(), 0, "b", oxCreateString("bee"));
  oxSetField(s.get(), 1, "c", oxCreateLogicalScalar(true));  // a new field keeps the values already set
  EXPECT_EQ(s->fieldNames(), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(oxGetScalar(oxGetFieldByNumber(s.get(), 1, 0)), 7.0);
  EXPECT_EQ(oxArrayToStdString(oxGetField(s.get(), 0, "b")), "bee");
  EXPECT_TRUE(oxIsLogicalScalarTrue(oxGetField(s.get(), 1, "c")));
  EXPECT_EQ(oxGetField(s.get(), 0, "none"), nullptr);
  EXPECT_EQ(oxGetFieldByNumber(s.get(), 2, 0), nullptr);
  EXPECT_EQ(oxGetFieldByNumber(s.get(), 0, -1), nullptr);
  EXPECT_EQ(s->addField("a"), 0);
  EXPECT_THROW(oxSetFieldByNumber(s.get(), 0, 5, nullptr), std::out_of_range);
  EXPECT_THROW(oxSetFieldByNumber(oxCreateCellMatrix(1, 1).get(), 0, 0, nullptr), std::logic_error);
  EXPECT_EQ(oxGetFieldByNumber(oxCreateCellMatrix(1, 1).get(), 0, 0), nullptr);
}

TEST(OxArray, DuplicatesAreDeepAndDestroyReleases) {
  auto s = oxCreateStructArray(1, 1, {"cells"});
  auto cells = oxCreateCellMatrix(1, 1);
  oxSetCell(cells.get(), 0, oxCreateString("inner"));
  oxSetFieldByNumber(s.get(), 0, 0, std::move(cells));
  auto copy = oxDuplicateArray(s.get());
  auto* copiedCells = const_cast<oxArray*>(oxGetFieldByNumber(copy.get(), 0, 0));
  oxSetCell(copiedCells, 0, oxCreateString("changed"));
  EXPECT_EQ(oxArrayToStdString(oxGetCell(oxGetFieldByNumber(s.get(), 0, 0), 0)), "inner");
  EXPECT_EQ(oxDuplicateArray(nullptr), nullptr);
  oxDestroyArray(copy);
  EXPECT_EQ(copy, nullptr);
  EXPECT_EQ(oxDuplicateArray(oxCreateObject("K").get())->className(), "K");
}

TEST(OxArray, SubscriptsAreColumnMajor) {
  const auto m = oxCreateDoubleMatrix(3, 4);
  EXPECT_EQ(oxCalcSingleSubscript(m.get(), {2, 0}), 2u);
  EXPECT_EQ(oxCalcSingleSubscript(m.get(), {1, 3}), 10u);
  EXPECT_EQ(oxCalcSingleSubscript(oxCreateCellMatrix(1, 20).get(), {0, 19}), 19u);
  EXPECT_EQ(oxCalcSingleSubscript(oxCreateCellMatrix(5, 1).get(), {0, 1}), 5u);
}

TEST(OxArray, ClassTestsAnswerForNullAndEveryClass) {
  EXPECT_FALSE(oxIsCharVector(nullptr) || oxIsScalar(nullptr) || oxIsLogicalScalar(nullptr));
  EXPECT_EQ(oxGetScalar(nullptr), 0.0);
  EXPECT_EQ(oxArrayToStdString(nullptr), "");
  EXPECT_EQ(oxGetClassID(nullptr), oxUNKNOWN_CLASS);
  auto column = std::make_unique<oxArray>(oxCHAR_CLASS, 3, 1);
  column->chars() = "abc";
  EXPECT_TRUE(oxIsCharVector(column.get()));
  EXPECT_TRUE(oxIsCharVector(oxCreateString("").get()));
  EXPECT_FALSE(oxIsCharVector(std::make_unique<oxArray>(oxCHAR_CLASS, 2, 3).get()));
  EXPECT_FALSE(oxIsCharVector(oxCreateDoubleScalar(1).get()));
  EXPECT_TRUE(oxIsLogicalScalar(oxCreateLogicalScalar(false).get()));
  EXPECT_FALSE(oxIsLogicalScalarTrue(oxCreateLogicalScalar(false).get()));
  EXPECT_FALSE(oxIsLogicalScalar(oxCreateDoubleScalar(1).get()));
  EXPECT_FALSE(oxIsLogicalScalarTrue(oxCreateDoubleScalar(1).get()));
  // The row readers take numbers from any numeric, logical or char scalar.
  EXPECT_EQ(oxGetScalar(oxCreateUInt32Scalar(4000000000u).get()), 4e9);
  EXPECT_EQ(oxGetScalar(oxCreateString("A").get()), 65.0);
  EXPECT_EQ(oxGetScalar(oxCreateDoubleMatrix(0, 0).get()), 0.0);
  EXPECT_EQ(oxGetScalar(oxCreateCellMatrix(1, 1).get()), 0.0);
  EXPECT_TRUE(oxCreateUInt32Scalar(1)->is_integer());
  EXPECT_FALSE(oxCreateDoubleScalar(1)->is_integer());
  EXPECT_EQ(oxArrayToStdString(oxCreateDoubleScalar(1).get()), "");
  EXPECT_FALSE(oxIsStruct(oxCreateObject("K").get()));
}
