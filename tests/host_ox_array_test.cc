// Host arrays: creation, ownership, cells and fields, subscripts and the
// class tests that the row readers rely on.
#include <gtest/gtest.h>

#include <stdexcept>

#include "host/ox_array.h"

TEST(OxArray, CreationGivesClassShapeAndZeros) {
  const auto d = oxCreateDoubleMatrix(2, 3);
  EXPECT_EQ(oxGetClassID(d.get()), oxDOUBLE_CLASS);
  EXPECT_EQ(oxGetNumberOfElements(d.get()), 6u);
  EXPECT_EQ(d->doubles(), std::vector<double>(6, 0.0));
  EXPECT_EQ(oxCreateNumericArray(1, 1, oxINT32_CLASS)->int32s(), std::vector<std::int32_t>{0});
  EXPECT_EQ(oxGetClassID(oxCreateUInt32Scalar(5).get()), oxUINT32_CLASS);
  EXPECT_EQ(oxGetClassID(oxCreateLogicalScalar(true).get()), oxLOGICAL_CLASS);
  EXPECT_EQ(oxGetClassID(oxCreateCellMatrix(1, 2).get()), oxCELL_CLASS);
  const auto s = oxCreateString("abc");
  EXPECT_EQ(s->rows(), 1u);
  EXPECT_EQ(s->cols(), 3u);
  // The empty text is 0 by 0, as the host makes it.
  const auto empty = oxCreateString("");
  EXPECT_EQ(empty->rows(), 0u);
  EXPECT_EQ(empty->cols(), 0u);
  // Another class's storage reads as empty and cannot be written.
  const oxArray& text = *s;
  EXPECT_TRUE(text.doubles().empty());
  EXPECT_THROW(s->doubles(), std::logic_error);
  EXPECT_THROW(oxCreateCellMatrix(1, 1)->addField("f"), std::logic_error);
  const auto object = oxCreateObject("GaugeKit.Tracer");
  EXPECT_EQ(oxGetClassID(object.get()), oxOBJECT_CLASS);
  EXPECT_EQ(object->className(), "GaugeKit.Tracer");
}

TEST(OxArray, CellsOwnTheirValues) {
  auto cells = oxCreateCellMatrix(1, 3);
  oxSetCell(cells.get(), 2, oxCreateString("x"));
  EXPECT_EQ(oxGetCell(cells.get(), 0), nullptr);
  EXPECT_EQ(oxArrayToStdString(oxGetCell(cells.get(), 2)), "x");
  EXPECT_EQ(oxGetCell(cells.get(), 3), nullptr);  // beyond the array
  EXPECT_EQ(oxGetCell(nullptr, 0), nullptr);
  EXPECT_THROW(oxSetCell(cells.get(), 3, oxCreateDoubleScalar(1)), std::out_of_range);
  EXPECT_THROW(oxSetCell(oxCreateDoubleScalar(1).get(), 0, nullptr), std::logic_error);
  EXPECT_THROW(oxSetCell(nullptr, 0, nullptr), std::invalid_argument);
  oxSetCell(cells.get(), 2, nullptr);  // replacing releases the old value
  EXPECT_EQ(oxGetCell(cells.get(), 2), nullptr);
}

TEST(OxArray, StructFieldsByNumberAndName) {
  auto s = oxCreateStructArray(1, 2, {"a", "b"});
  oxSetFieldByNumber(s.get(), 1, 0, oxCreateDoubleScalar(7));
  oxSetField(s.get(), 0, "b", oxCreateString("bee"));
  // A new field keeps the values already set.
  oxSetField(s.get(), 1, "c", oxCreateLogicalScalar(true));
  EXPECT_EQ(s->fieldNames(), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(oxGetScalar(oxGetFieldByNumber(s.get(), 1, 0)), 7.0);
  EXPECT_EQ(oxArrayToStdString(oxGetField(s.get(), 0, "b")), "bee");
  EXPECT_TRUE(oxIsLogicalScalarTrue(oxGetField(s.get(), 1, "c")));
  EXPECT_EQ(oxGetField(s.get(), 0, "c"), nullptr);
  EXPECT_EQ(oxGetField(s.get(), 0, "none"), nullptr);
  EXPECT_EQ(oxGetFieldByNumber(s.get(), 2, 0), nullptr);  // no element 2
  EXPECT_EQ(oxGetFieldByNumber(s.get(), 0, -1), nullptr);
  EXPECT_EQ(s->addField("a"), 0);  // an existing name is not added twice
  EXPECT_THROW(oxSetFieldByNumber(s.get(), 0, 5, nullptr), std::out_of_range);
  EXPECT_THROW(oxSetFieldByNumber(oxCreateCellMatrix(1, 1).get(), 0, 0, nullptr), std::logic_error);
  // Fields of a cell array read as absent.
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
  EXPECT_EQ(oxArrayToStdString(oxGetCell(copiedCells, 0)), "changed");
  EXPECT_EQ(oxDuplicateArray(nullptr), nullptr);
  oxDestroyArray(copy);
  EXPECT_EQ(copy, nullptr);
  const auto objectCopy = oxDuplicateArray(oxCreateObject("K").get());
  EXPECT_EQ(objectCopy->className(), "K");
}

TEST(OxArray, SubscriptsAreColumnMajor) {
  const auto m = oxCreateDoubleMatrix(3, 4);
  EXPECT_EQ(oxCalcSingleSubscript(m.get(), {0, 0}), 0u);
  EXPECT_EQ(oxCalcSingleSubscript(m.get(), {2, 0}), 2u);
  EXPECT_EQ(oxCalcSingleSubscript(m.get(), {1, 3}), 10u);
  const auto row = oxCreateCellMatrix(1, 20);
  EXPECT_EQ(oxCalcSingleSubscript(row.get(), {0, 19}), 19u);
  // In a column, the column subscript steps over whole columns.
  const auto column = oxCreateCellMatrix(5, 1);
  EXPECT_EQ(oxCalcSingleSubscript(column.get(), {0, 1}), 5u);
}

TEST(OxArray, ClassTestsAnswerForNullAndEveryClass) {
  EXPECT_FALSE(oxIsCharVector(nullptr));
  EXPECT_FALSE(oxIsScalar(nullptr));
  EXPECT_FALSE(oxIsLogicalScalar(nullptr));
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
