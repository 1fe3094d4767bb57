#include "host/mat_variable.h"

#include <matio.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "host/utf16_text.h"

void MatVariableDeleter::operator()(matvar_t* variable) const { Mat_VarFree(variable); }

namespace {

// ---- host array to file variable -------------------------------------------

MatVariablePtr create(std::string_view name, matio_classes cls, matio_types type, std::size_t rows,
                      std::size_t cols, const void* data, int options = 0) {
  std::size_t dims[2] = {rows, cols};
  const std::string n(name);
  // matio copies the data (no MAT_F_DONT_COPY_DATA), so const is kept.
  return MatVariablePtr(Mat_VarCreate(n.c_str(), cls, type, 2, dims, const_cast<void*>(data), options));
}

MatVariablePtr emptyDouble(std::string_view name) {
  return create(name, MAT_C_DOUBLE, MAT_T_DOUBLE, 0, 0, nullptr);
}

MatVariablePtr elementOrEmpty(std::string_view name, const oxArray* element) {
  if (element) {
    if (auto v = tgArrayToMatVariable(name, element)) return v;
  }
  return emptyDouble(name);
}

MatVariablePtr charVariable(std::string_view name, const oxArray& a) {
  std::u16string units;
  std::size_t rows = a.rows(), cols = a.cols();
  if (oxIsCharVector(&a)) {
    units = tgUtf8ToUtf16(a.chars());
    // Keep the orientation; UTF-8 sequences may shorten the vector.
    if (a.numel() == 0) {
      units.clear();
    } else if (cols == 1 && rows > 1) {
      rows = units.size();
    } else {
      rows = 1, cols = units.size();
    }
  } else {
    // A char matrix: each byte is one character of its column-major cell.
    units.reserve(a.chars().size());
    for (const char c : a.chars()) units += static_cast<char16_t>(static_cast<unsigned char>(c));
  }
  return create(name, MAT_C_CHAR, MAT_T_UINT16, rows, cols, units.empty() ? nullptr : units.data());
}

MatVariablePtr cellVariable(std::string_view name, const oxArray& a) {
  std::vector<matvar_t*> cells(a.numel(), nullptr);
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = elementOrEmpty("", a.cell(i)).release();
  // matio copies the pointer array and owns the cells from here on.
  auto v = create(name, MAT_C_CELL, MAT_T_CELL, a.rows(), a.cols(), cells.empty() ? nullptr : cells.data());
  if (!v)
    for (matvar_t* c : cells) Mat_VarFree(c);
  return v;
}

MatVariablePtr structVariable(std::string_view name, const oxArray& a) {
  const auto& names = a.fieldNames();
  std::vector<const char*> fields;
  fields.reserve(names.size());
  for (const auto& f : names) fields.push_back(f.c_str());
  fields.push_back(nullptr);  // matio takes a null-terminated list of names
  const std::size_t dims[2] = {a.rows(), a.cols()};
  const std::string n(name);
  MatVariablePtr v(Mat_VarCreateStruct2(n.c_str(), 2, dims, fields.data()));
  if (!v) return nullptr;
  for (std::size_t e = 0; e < a.numel(); ++e) {
    for (std::size_t f = 0; f < names.size(); ++f) {
      MatVariablePtr value = elementOrEmpty(names[f], a.get_struct_field_by_number(e, static_cast<int>(f)));
      if (!value) return nullptr;
      // On success the struct owns the value; it returns the field's old value.
      matvar_t* old = Mat_VarSetStructFieldByIndex(v.get(), f, e, value.get());
      value.release();
      Mat_VarFree(old);
    }
  }
  return v;
}

// ---- file variable to host array -------------------------------------------

// rows and the product of the other dimensions; false when it overflows.
bool shape(const matvar_t* v, std::size_t& rows, std::size_t& cols) {
  if (!v->dims || v->rank < 1) return false;
  rows = v->dims[0];
  cols = 1;
  for (int d = 1; d < v->rank; ++d) {
    const std::size_t n = v->dims[d];
    if (n != 0 && cols > std::numeric_limits<std::size_t>::max() / n) return false;
    cols *= n;
  }
  if (cols != 0 && rows > std::numeric_limits<std::size_t>::max() / cols) return false;
  return true;
}

// True when the variable's data holds at least `count` elements of `size`
// bytes: a damaged file can give dimensions that its data does not fill.
bool holds(const matvar_t* v, std::size_t count, std::size_t size) {
  if (count == 0) return true;
  return v->data && size > 0 && v->nbytes / size >= count;
}

// The real part of numeric data of any class, as doubles.
template <class T>
void copyReal(const void* data, std::size_t n, std::vector<double>& out) {
  const T* values = static_cast<const T*>(data);
  for (std::size_t i = 0; i < n; ++i) out[i] = static_cast<double>(values[i]);
}

bool realAsDoubles(const matvar_t* v, std::size_t n, std::vector<double>& out) {
  out.assign(n, 0.0);
  if (n == 0) return true;
  const void* data = v->data;
  if (v->isComplex) data = data ? static_cast<const mat_complex_split_t*>(data)->Re : nullptr;
  if (!data) return false;
  switch (v->class_type) {
    case MAT_C_DOUBLE: copyReal<double>(data, n, out); break;
    case MAT_C_SINGLE: copyReal<float>(data, n, out); break;
    case MAT_C_INT8: copyReal<std::int8_t>(data, n, out); break;
    case MAT_C_UINT8: copyReal<std::uint8_t>(data, n, out); break;
    case MAT_C_INT16: copyReal<std::int16_t>(data, n, out); break;
    case MAT_C_UINT16: copyReal<std::uint16_t>(data, n, out); break;
    case MAT_C_INT32: copyReal<std::int32_t>(data, n, out); break;
    case MAT_C_UINT32: copyReal<std::uint32_t>(data, n, out); break;
    case MAT_C_INT64: copyReal<std::int64_t>(data, n, out); break;
    case MAT_C_UINT64: copyReal<std::uint64_t>(data, n, out); break;
    default: return false;
  }
  return true;
}

std::size_t classSize(matio_classes cls) {
  switch (cls) {
    case MAT_C_DOUBLE: case MAT_C_INT64: case MAT_C_UINT64: return 8;
    case MAT_C_SINGLE: case MAT_C_INT32: case MAT_C_UINT32: return 4;
    case MAT_C_INT16: case MAT_C_UINT16: return 2;
    case MAT_C_INT8: case MAT_C_UINT8: return 1;
    default: return 0;
  }
}

oxArrayPtr numericArray(const matvar_t* v, std::size_t rows, std::size_t cols) {
  const std::size_t n = rows * cols;
  // matio converts the stored values to the class's own type on reading.
  if (n > 0 && static_cast<std::size_t>(v->data_size) != classSize(v->class_type)) return nullptr;
  if (!holds(v, n, classSize(v->class_type))) return nullptr;
  std::vector<double> values;
  if (!realAsDoubles(v, n, values)) return nullptr;
  oxClassID target = oxDOUBLE_CLASS;
  switch (v->class_type) {
    case MAT_C_UINT8:
      if (v->isLogical) target = oxLOGICAL_CLASS;
      else target = oxINT32_CLASS;
      break;
    case MAT_C_INT8: case MAT_C_INT16: case MAT_C_UINT16: case MAT_C_INT32: target = oxINT32_CLASS; break;
    case MAT_C_UINT32: target = oxUINT32_CLASS; break;
    default: break;  // double, single, 64-bit integers
  }
  auto a = oxCreateNumericArray(rows, cols, target);
  switch (target) {
    case oxLOGICAL_CLASS:
      for (std::size_t i = 0; i < n; ++i) a->logicals()[i] = values[i] != 0.0 ? 1 : 0;
      break;
    case oxINT32_CLASS:
      for (std::size_t i = 0; i < n; ++i) a->int32s()[i] = static_cast<std::int32_t>(values[i]);
      break;
    case oxUINT32_CLASS:
      for (std::size_t i = 0; i < n; ++i) a->uint32s()[i] = static_cast<std::uint32_t>(values[i]);
      break;
    default: a->doubles() = std::move(values); break;
  }
  return a;
}

oxArrayPtr charArray(const matvar_t* v, std::size_t rows, std::size_t cols) {
  const std::size_t n = rows * cols;
  if (!holds(v, n, v->data_size > 0 ? static_cast<std::size_t>(v->data_size) : 0)) return nullptr;
  const bool vector = rows <= 1 || cols <= 1;
  std::string text;
  switch (v->data_size) {
    case 1:
      if (n > 0) text.assign(static_cast<const char*>(v->data), n);
      break;
    case 2: {
      const auto* units = static_cast<const char16_t*>(v->data);
      if (vector) {
        text = tgUtf16ToUtf8(std::u16string_view(units, n));
      } else {
        for (std::size_t i = 0; i < n; ++i) text += units[i] < 256 ? static_cast<char>(units[i]) : '?';
      }
      break;
    }
    case 4: {
      const auto* points = static_cast<const std::uint32_t*>(v->data);
      for (std::size_t i = 0; i < n; ++i) {
        if (vector) tgAppendUtf8(text, points[i]);
        else text += points[i] < 256 ? static_cast<char>(points[i]) : '?';
      }
      break;
    }
    default:
      if (n > 0) return nullptr;
  }
  if (n == 0) return std::make_unique<oxArray>(oxCHAR_CLASS, rows, cols);
  if (vector) {
    // A vector's UTF-8 text may be longer than its character count.
    const bool column = cols == 1 && rows > 1;
    auto a = std::make_unique<oxArray>(oxCHAR_CLASS, column ? text.size() : 1, column ? 1 : text.size());
    a->chars() = std::move(text);
    return a;
  }
  auto a = std::make_unique<oxArray>(oxCHAR_CLASS, rows, cols);
  a->chars() = std::move(text);
  return a;
}

oxArrayPtr cellArray(const matvar_t* v, std::size_t rows, std::size_t cols) {
  const std::size_t n = rows * cols;
  if (!holds(v, n, sizeof(matvar_t*))) return nullptr;
  auto a = oxCreateCellMatrix(rows, cols);
  const auto* cells = static_cast<matvar_t* const*>(v->data);
  for (std::size_t i = 0; i < n; ++i) a->setCell(i, tgMatVariableToArray(cells[i]));
  return a;
}

oxArrayPtr structArray(const matvar_t* v, std::size_t rows, std::size_t cols) {
  auto* variable = const_cast<matvar_t*>(v);  // matio's getters take non-const pointers
  const unsigned fieldCount = Mat_VarGetNumberOfFields(variable);
  char* const* names = Mat_VarGetStructFieldnames(variable);
  if (fieldCount > 0 && !names) return nullptr;
  std::vector<std::string> fields;
  for (unsigned f = 0; f < fieldCount; ++f) fields.emplace_back(names[f] ? names[f] : "");
  auto a = oxCreateStructArray(rows, cols, fields);
  // Duplicate names would merge into one field; the struct keeps the first.
  const std::size_t n = rows * cols;
  if (fieldCount > 0 && n > 0 && (n > SIZE_MAX / fieldCount || !holds(v, n * fieldCount, sizeof(matvar_t*))))
    return nullptr;
  for (std::size_t e = 0; e < n; ++e)
    for (unsigned f = 0; f < fieldCount; ++f) {
      const int number = a->fieldNumber(fields[f]);
      if (number != static_cast<int>(f)) continue;
      a->setFieldByNumber(e, number, tgMatVariableToArray(Mat_VarGetStructFieldByIndex(variable, f, e)));
    }
  return a;
}

}  // namespace

MatVariablePtr tgArrayToMatVariable(std::string_view name, const oxArray* array) {
  if (!array) return nullptr;
  const oxArray& a = *array;
  switch (a.classID()) {
    case oxDOUBLE_CLASS:
      return create(name, MAT_C_DOUBLE, MAT_T_DOUBLE, a.rows(), a.cols(), a.isEmpty() ? nullptr : a.doubles().data());
    case oxINT32_CLASS:
      return create(name, MAT_C_INT32, MAT_T_INT32, a.rows(), a.cols(), a.isEmpty() ? nullptr : a.int32s().data());
    case oxUINT32_CLASS:
      return create(name, MAT_C_UINT32, MAT_T_UINT32, a.rows(), a.cols(), a.isEmpty() ? nullptr : a.uint32s().data());
    case oxLOGICAL_CLASS:
      return create(name, MAT_C_UINT8, MAT_T_UINT8, a.rows(), a.cols(), a.isEmpty() ? nullptr : a.logicals().data(),
                    MAT_F_LOGICAL);
    case oxCHAR_CLASS: return charVariable(name, a);
    case oxCELL_CLASS: return cellVariable(name, a);
    case oxSTRUCT_CLASS:
    case oxOBJECT_CLASS: return structVariable(name, a);
    default: return nullptr;
  }
}

oxArrayPtr tgMatVariableToArray(const matvar_t* v) {
  if (!v) return nullptr;
  std::size_t rows = 0, cols = 0;
  if (!shape(v, rows, cols)) return nullptr;
  switch (v->class_type) {
    case MAT_C_CHAR: return charArray(v, rows, cols);
    case MAT_C_CELL: return cellArray(v, rows, cols);
    case MAT_C_STRUCT: return structArray(v, rows, cols);
    case MAT_C_EMPTY: return oxCreateDoubleMatrix(0, 0);
    case MAT_C_DOUBLE: case MAT_C_SINGLE: case MAT_C_INT8: case MAT_C_UINT8: case MAT_C_INT16:
    case MAT_C_UINT16: case MAT_C_INT32: case MAT_C_UINT32: case MAT_C_INT64: case MAT_C_UINT64:
      return numericArray(v, rows, cols);
    default: return nullptr;
  }
}
