// SPDX-License-Identifier: BSD-3-Clause
// Host arrays: the values that cross between tempogauge and its host (the
// scripting language, saved trace files). A small value type with the host's
// class numbers and column-major element order, plus the ox... operations the
// rest of the module uses. Arrays are held by owning handles (oxArrayPtr).
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

enum oxClassID : std::int32_t {
  oxUNKNOWN_CLASS = 0,
  oxCELL_CLASS = 1,
  oxSTRUCT_CLASS = 2,
  oxLOGICAL_CLASS = 3,
  oxCHAR_CLASS = 4,
  oxDOUBLE_CLASS = 6,
  oxINT32_CLASS = 12,
  oxUINT32_CLASS = 13,
  oxOBJECT_CLASS = 18,
};

class oxArray;
using oxArrayPtr = std::unique_ptr<oxArray>;

class oxArray {
 public:
  oxArray(oxClassID cls, std::size_t rows, std::size_t cols);
  oxArray(const oxArray&) = delete;
  oxArray& operator=(const oxArray&) = delete;
  ~oxArray();

  oxClassID classID() const { return cls_; }
  std::size_t rows() const { return rows_; }
  std::size_t cols() const { return cols_; }
  std::size_t numel() const { return rows_ * cols_; }
  bool isEmpty() const { return numel() == 0; }

  // Typed storage of the array's own class. Read access to another class's
  // storage gives an empty one; write access to it throws std::logic_error.
  std::vector<double>& doubles() { return mut<std::vector<double>>(); }
  const std::vector<double>& doubles() const { return get<std::vector<double>>(); }
  std::vector<std::int32_t>& int32s() { return mut<std::vector<std::int32_t>>(); }
  const std::vector<std::int32_t>& int32s() const { return get<std::vector<std::int32_t>>(); }
  std::vector<std::uint32_t>& uint32s() { return mut<std::vector<std::uint32_t>>(); }
  const std::vector<std::uint32_t>& uint32s() const { return get<std::vector<std::uint32_t>>(); }
  std::vector<std::uint8_t>& logicals() { return mut<std::vector<std::uint8_t>>(); }
  const std::vector<std::uint8_t>& logicals() const { return get<std::vector<std::uint8_t>>(); }
  std::string& chars() { return mut<std::string>(); }
  const std::string& chars() const { return get<std::string>(); }

  // Cell arrays: one element per index; a slot may be empty (null).
  const oxArray* cell(std::size_t index) const;
  oxArray* cell(std::size_t index);
  void setCell(std::size_t index, oxArrayPtr value);

  // Struct and object arrays: named fields, one value per element and field.
  const std::vector<std::string>& fieldNames() const;
  int fieldNumber(std::string_view name) const;  // -1 when absent
  int addField(std::string_view name);           // number of the (new or old) field
  const oxArray* get_struct_field_by_number(std::size_t element, int field) const;
  void setFieldByNumber(std::size_t element, int field, oxArrayPtr value);
  const std::string& className() const;
  void setClassName(std::string_view name);

  // True for the integer classes (int32, uint32).
  bool is_integer() const;
  oxArrayPtr clone() const;

 private:
  // Fields of struct and object arrays: values element by element, each
  // element with its fields in order.
  struct Fields {
    std::vector<oxArrayPtr> slots;
    std::vector<std::string> names;
    std::string className;
  };
  using Storage = std::variant<std::monostate, std::vector<double>, std::vector<std::int32_t>,
                               std::vector<std::uint32_t>, std::vector<std::uint8_t>, std::string,
                               std::vector<oxArrayPtr>, std::unique_ptr<Fields>>;

  template <class T>
  T& mut() {
    if (T* held = std::get_if<T>(&storage_)) return *held;
    throw std::logic_error("host array accessed as another class");
  }
  template <class T>
  const T& get() const {
    static const T empty{};
    const T* held = std::get_if<T>(&storage_);
    return held ? *held : empty;
  }
  Fields* fields();
  const Fields* fields() const;

  oxClassID cls_;
  std::size_t rows_;
  std::size_t cols_;
  Storage storage_;
};

// Creation. Every function returns a new array owned by the caller.
oxArrayPtr oxCreateCellMatrix(std::size_t rows, std::size_t cols);
oxArrayPtr oxCreateNumericArray(std::size_t rows, std::size_t cols, oxClassID cls);
oxArrayPtr oxCreateDoubleMatrix(std::size_t rows, std::size_t cols);
oxArrayPtr oxCreateDoubleScalar(double value);
oxArrayPtr oxCreateInt32Scalar(std::int32_t value);
oxArrayPtr oxCreateUInt32Scalar(std::uint32_t value);
oxArrayPtr oxCreateLogicalScalar(bool value);
oxArrayPtr oxCreateString(std::string_view text);
oxArrayPtr oxCreateStructArray(std::size_t rows, std::size_t cols,
                               const std::vector<std::string>& fieldNames);
oxArrayPtr oxCreateObject(std::string_view className);
oxArrayPtr oxDuplicateArray(const oxArray* array);
void oxDestroyArray(oxArrayPtr& array);

// Element access. Setters take ownership of the value.
void oxSetCell(oxArray* cellArray, std::size_t index, oxArrayPtr value);
const oxArray* oxGetCell(const oxArray* cellArray, std::size_t index);
void oxSetFieldByNumber(oxArray* structArray, std::size_t element, int field, oxArrayPtr value);
const oxArray* oxGetFieldByNumber(const oxArray* structArray, std::size_t element, int field);
const oxArray* oxGetField(const oxArray* structArray, std::size_t element, std::string_view name);
void oxSetField(oxArray* structArray, std::size_t element, std::string_view name, oxArrayPtr value);

// Column-major linear index of (row, column, ...) subscripts.
std::size_t oxCalcSingleSubscript(const oxArray* array, std::initializer_list<std::size_t> subs);

// Queries. All accept null and answer false, 0 or empty for it.
oxClassID oxGetClassID(const oxArray* array);
std::size_t oxGetNumberOfElements(const oxArray* array);
bool oxIsCharVector(const oxArray* array);
bool oxIsLogicalScalar(const oxArray* array);
bool oxIsLogicalScalarTrue(const oxArray* array);
bool oxIsScalar(const oxArray* array);
bool oxIsVector(const oxArray* array);
bool oxIsNumeric(const oxArray* array);
bool oxIsCell(const oxArray* array);
bool oxIsStruct(const oxArray* array);
double oxGetScalar(const oxArray* array);  // first element of a numeric or logical array, else 0
std::string oxArrayToStdString(const oxArray* array);  // text of a char array, else empty
