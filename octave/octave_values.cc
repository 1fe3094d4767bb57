// SPDX-License-Identifier: GPL-3.0-or-later
// Octave values to host arrays and back.
#include "octave/octave_values.h"

#include <octave/Cell.h>
#include <octave/oct-map.h>
#include <octave/ov-ch-mat.h>

#include <string>

namespace tg::octave_adapter {
namespace {

std::size_t rowsOf(const dim_vector& dims) { return static_cast<std::size_t>(dims(0)); }

std::size_t colsOf(const dim_vector& dims) {
  std::size_t cols = 1;
  for (int i = 1; i < dims.ndims(); ++i) cols *= static_cast<std::size_t>(dims(i));
  return cols;
}

template <class Array, class Target>
void copyElements(const Array& source, std::vector<Target>& target) {
  const octave_idx_type n = source.numel();
  for (octave_idx_type i = 0; i < n; ++i) target[static_cast<std::size_t>(i)] = static_cast<Target>(source(i));
}

// An Octave array of `dims` whose first `n` elements, in column order, are
// those of `values`.
template <class OctaveArray, class Values>
OctaveArray filledArray(const dim_vector& dims, octave_idx_type n, const Values& values) {
  OctaveArray out(dims);
  for (octave_idx_type i = 0; i < n; ++i) out(i) = values[static_cast<std::size_t>(i)];
  return out;
}

oxArrayPtr fromCell(const Cell& cell) {
  const dim_vector dims = cell.dims();
  auto array = oxCreateCellMatrix(rowsOf(dims), colsOf(dims));
  for (octave_idx_type i = 0; i < cell.numel(); ++i)
    oxSetCell(array.get(), static_cast<std::size_t>(i), toHostArray(cell(i)));
  return array;
}

oxArrayPtr fromMap(const octave_map& map) {
  const dim_vector dims = map.dims();
  const string_vector keys = map.fieldnames();
  std::vector<std::string> names;
  for (octave_idx_type k = 0; k < keys.numel(); ++k) names.push_back(keys(k));
  auto array = oxCreateStructArray(rowsOf(dims), colsOf(dims), names);
  for (octave_idx_type k = 0; k < keys.numel(); ++k) {
    const Cell values = map.contents(keys(k));
    for (octave_idx_type e = 0; e < values.numel(); ++e)
      oxSetFieldByNumber(array.get(), static_cast<std::size_t>(e), static_cast<int>(k), toHostArray(values(e)));
  }
  return array;
}

}  // namespace

std::optional<std::string_view> charVectorText(const octave_value& value) {
  if (!value.is_string()) return std::nullopt;
  // Every char array (single- and double-quoted) is an octave_char_matrix;
  // its matrix is read by reference, where value.dims() and
  // value.char_array_value() would each allocate a copy of the dimensions.
  const auto* chars = dynamic_cast<const octave_char_matrix*>(value.internal_rep());
  if (!chars) return std::nullopt;
  const charNDArray& array = chars->matrix_ref();
  const dim_vector& dims = array.dims();
  if (dims.ndims() != 2 || (dims(0) != 1 && dims(1) != 1)) return std::nullopt;
  return std::string_view(array.data(), static_cast<std::size_t>(array.numel()));
}

oxArrayPtr toHostArray(const octave_value& value) {
  // Scalars first: the flags and numbers of logging calls, without the
  // copies of dimensions and arrays that the general path makes.
  if (value.is_bool_scalar()) return oxCreateLogicalScalar(value.bool_value());
  if (value.is_real_scalar() && value.is_double_type()) return oxCreateDoubleScalar(value.double_value());
  if (value.is_string()) {
    const charNDArray chars = value.char_array_value();
    const dim_vector& dims = chars.dims();
    auto array = std::make_unique<oxArray>(oxCHAR_CLASS, rowsOf(dims), colsOf(dims));
    array->chars().assign(chars.data(), static_cast<std::size_t>(chars.numel()));
    return array;
  }
  const dim_vector dims = value.dims();
  const std::size_t rows = rowsOf(dims);
  const std::size_t cols = colsOf(dims);
  if (value.islogical()) {
    auto array = std::make_unique<oxArray>(oxLOGICAL_CLASS, rows, cols);
    copyElements(value.bool_array_value(), array->logicals());
    return array;
  }
  if (value.iscell()) return fromCell(value.cell_value());
  if (value.isstruct()) return fromMap(value.map_value());
  if (value.is_int32_type()) {
    auto array = std::make_unique<oxArray>(oxINT32_CLASS, rows, cols);
    const int32NDArray ints = value.int32_array_value();
    for (octave_idx_type i = 0; i < ints.numel(); ++i) array->int32s()[static_cast<std::size_t>(i)] = ints(i).value();
    return array;
  }
  if (value.is_uint32_type()) {
    auto array = std::make_unique<oxArray>(oxUINT32_CLASS, rows, cols);
    const uint32NDArray ints = value.uint32_array_value();
    for (octave_idx_type i = 0; i < ints.numel(); ++i)
      array->uint32s()[static_cast<std::size_t>(i)] = ints(i).value();
    return array;
  }
  if (value.isnumeric()) {
    auto array = std::make_unique<oxArray>(oxDOUBLE_CLASS, rows, cols);
    copyElements(value.array_value(true), array->doubles());
    return array;
  }
  return std::make_unique<oxArray>(oxUNKNOWN_CLASS, rows, cols);
}

octave_value toOctaveValue(const oxArray* array) {
  if (!array) return octave_value(Matrix());
  const dim_vector dims(static_cast<octave_idx_type>(array->rows()), static_cast<octave_idx_type>(array->cols()));
  const auto n = static_cast<octave_idx_type>(array->numel());
  switch (array->classID()) {
    case oxCHAR_CLASS:
      return octave_value(filledArray<charNDArray>(dims, n, array->chars()), '"');
    case oxLOGICAL_CLASS:
      return octave_value(filledArray<boolNDArray>(dims, n, array->logicals()));
    case oxDOUBLE_CLASS:
      return octave_value(filledArray<NDArray>(dims, n, array->doubles()));
    case oxINT32_CLASS:
      return octave_value(filledArray<int32NDArray>(dims, n, array->int32s()));
    case oxUINT32_CLASS:
      return octave_value(filledArray<uint32NDArray>(dims, n, array->uint32s()));
    case oxCELL_CLASS: {
      Cell cell(dims);
      for (octave_idx_type i = 0; i < n; ++i) cell(i) = toOctaveValue(oxGetCell(array, static_cast<std::size_t>(i)));
      return octave_value(cell);
    }
    case oxSTRUCT_CLASS:
    case oxOBJECT_CLASS: {
      octave_map map(dims);
      const auto& names = array->fieldNames();
      for (std::size_t f = 0; f < names.size(); ++f) {
        Cell values(dims);
        for (octave_idx_type e = 0; e < n; ++e)
          values(e) = toOctaveValue(oxGetFieldByNumber(array, static_cast<std::size_t>(e), static_cast<int>(f)));
        map.setfield(names[f], values);
      }
      return octave_value(map);
    }
    default:
      return octave_value(Matrix(dims));
  }
}

}  // namespace tg::octave_adapter
