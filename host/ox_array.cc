// SPDX-License-Identifier: BSD-3-Clause
#include "host/ox_array.h"

#include <algorithm>
#include <stdexcept>
#include <type_traits>

oxArray::oxArray(oxClassID cls, std::size_t rows, std::size_t cols) : cls_(cls), rows_(rows), cols_(cols) {
  const std::size_t n = rows * cols;
  switch (cls) {
    case oxDOUBLE_CLASS: storage_.emplace<std::vector<double>>(n, 0.0); break;
    case oxINT32_CLASS: storage_.emplace<std::vector<std::int32_t>>(n, 0); break;
    case oxUINT32_CLASS: storage_.emplace<std::vector<std::uint32_t>>(n, 0); break;
    case oxLOGICAL_CLASS: storage_.emplace<std::vector<std::uint8_t>>(n, 0); break;
    case oxCHAR_CLASS: storage_.emplace<std::string>(n, '\0'); break;
    case oxCELL_CLASS: storage_.emplace<std::vector<oxArrayPtr>>(n); break;
    case oxSTRUCT_CLASS:
    case oxOBJECT_CLASS: storage_.emplace<std::unique_ptr<Fields>>(std::make_unique<Fields>()); break;
    default: break;
  }
}

oxArray::~oxArray() = default;

oxArray::Fields* oxArray::fields() {
  auto* held = std::get_if<std::unique_ptr<Fields>>(&storage_);
  return held ? held->get() : nullptr;
}

const oxArray::Fields* oxArray::fields() const {
  const auto* held = std::get_if<std::unique_ptr<Fields>>(&storage_);
  return held ? held->get() : nullptr;
}

const oxArray* oxArray::cell(std::size_t index) const {
  const auto* slots = std::get_if<std::vector<oxArrayPtr>>(&storage_);
  if (!slots || index >= slots->size()) return nullptr;
  return (*slots)[index].get();
}

oxArray* oxArray::cell(std::size_t index) {
  auto* slots = std::get_if<std::vector<oxArrayPtr>>(&storage_);
  if (!slots || index >= slots->size()) return nullptr;
  return (*slots)[index].get();
}

void oxArray::setCell(std::size_t index, oxArrayPtr value) {
  auto* slots = std::get_if<std::vector<oxArrayPtr>>(&storage_);
  if (!slots) throw std::logic_error("oxSetCell on an array that is not a cell array");
  if (index >= slots->size()) throw std::out_of_range("oxSetCell index beyond the array");
  (*slots)[index] = std::move(value);
}

const std::vector<std::string>& oxArray::fieldNames() const {
  static const std::vector<std::string> none;
  const Fields* f = fields();
  return f ? f->names : none;
}

int oxArray::fieldNumber(std::string_view name) const {
  const auto& names = fieldNames();
  const auto it = std::find(names.begin(), names.end(), name);
  return it == names.end() ? -1 : static_cast<int>(it - names.begin());
}

int oxArray::addField(std::string_view name) {
  Fields* f = fields();
  if (!f) throw std::logic_error("a field added to an array that is not a struct");
  if (const int existing = fieldNumber(name); existing >= 0) return existing;
  const std::size_t oldCount = f->names.size();
  // Values are stored element by element; make room for the new field in each.
  std::vector<oxArrayPtr> grown(numel() * (oldCount + 1));
  for (std::size_t e = 0; oldCount > 0 && e < numel(); ++e)
    for (std::size_t k = 0; k < oldCount; ++k) grown[e * (oldCount + 1) + k] = std::move(f->slots[e * oldCount + k]);
  f->slots = std::move(grown);
  f->names.emplace_back(name);
  return static_cast<int>(oldCount);
}

const oxArray* oxArray::get_struct_field_by_number(std::size_t element, int field) const {
  const Fields* f = fields();
  if (!f || field < 0 || static_cast<std::size_t>(field) >= f->names.size() || element >= numel()) return nullptr;
  return f->slots[element * f->names.size() + static_cast<std::size_t>(field)].get();
}

void oxArray::setFieldByNumber(std::size_t element, int field, oxArrayPtr value) {
  Fields* f = fields();
  if (!f) throw std::logic_error("oxSetFieldByNumber on an array that is not a struct");
  if (field < 0 || static_cast<std::size_t>(field) >= f->names.size() || element >= numel())
    throw std::out_of_range("oxSetFieldByNumber beyond the struct's fields or elements");
  f->slots[element * f->names.size() + static_cast<std::size_t>(field)] = std::move(value);
}

const std::string& oxArray::className() const {
  static const std::string none;
  const Fields* f = fields();
  return f ? f->className : none;
}

void oxArray::setClassName(std::string_view name) {
  Fields* f = fields();
  if (!f) throw std::logic_error("a class name given to an array that is not an object");
  f->className = name;
}

bool oxArray::is_integer() const { return cls_ == oxINT32_CLASS || cls_ == oxUINT32_CLASS; }

oxArrayPtr oxArray::clone() const {
  auto copy = std::make_unique<oxArray>(oxUNKNOWN_CLASS, rows_, cols_);
  copy->cls_ = cls_;
  std::visit(
      [&copy](const auto& held) {
        using T = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<T, std::vector<oxArrayPtr>>) {
          std::vector<oxArrayPtr> slots(held.size());
          for (std::size_t i = 0; i < held.size(); ++i)
            if (held[i]) slots[i] = held[i]->clone();
          copy->storage_ = std::move(slots);
        } else if constexpr (std::is_same_v<T, std::unique_ptr<Fields>>) {
          auto f = std::make_unique<Fields>();
          f->names = held->names;
          f->className = held->className;
          f->slots.resize(held->slots.size());
          for (std::size_t i = 0; i < held->slots.size(); ++i)
            if (held->slots[i]) f->slots[i] = held->slots[i]->clone();
          copy->storage_ = std::move(f);
        } else {
          copy->storage_ = held;
        }
      },
      storage_);
  return copy;
}

oxArrayPtr oxCreateCellMatrix(std::size_t rows, std::size_t cols) {
  return std::make_unique<oxArray>(oxCELL_CLASS, rows, cols);
}

oxArrayPtr oxCreateNumericArray(std::size_t rows, std::size_t cols, oxClassID cls) {
  return std::make_unique<oxArray>(cls, rows, cols);
}

oxArrayPtr oxCreateDoubleMatrix(std::size_t rows, std::size_t cols) {
  return std::make_unique<oxArray>(oxDOUBLE_CLASS, rows, cols);
}

oxArrayPtr oxCreateDoubleScalar(double value) {
  auto a = oxCreateDoubleMatrix(1, 1);
  a->doubles()[0] = value;
  return a;
}

oxArrayPtr oxCreateInt32Scalar(std::int32_t value) {
  auto a = oxCreateNumericArray(1, 1, oxINT32_CLASS);
  a->int32s()[0] = value;
  return a;
}

oxArrayPtr oxCreateUInt32Scalar(std::uint32_t value) {
  auto a = oxCreateNumericArray(1, 1, oxUINT32_CLASS);
  a->uint32s()[0] = value;
  return a;
}

oxArrayPtr oxCreateLogicalScalar(bool value) {
  auto a = std::make_unique<oxArray>(oxLOGICAL_CLASS, 1, 1);
  a->logicals()[0] = value ? 1 : 0;
  return a;
}

oxArrayPtr oxCreateString(std::string_view text) {
  // An empty text is a 0 by 0 char array, as the host makes it.
  auto a = std::make_unique<oxArray>(oxCHAR_CLASS, text.empty() ? 0 : 1, text.size());
  a->chars().assign(text);
  return a;
}

oxArrayPtr oxCreateStructArray(std::size_t rows, std::size_t cols,
                               const std::vector<std::string>& fieldNames) {
  auto a = std::make_unique<oxArray>(oxSTRUCT_CLASS, rows, cols);
  for (const auto& name : fieldNames) a->addField(name);
  return a;
}

oxArrayPtr oxCreateObject(std::string_view className) {
  auto a = std::make_unique<oxArray>(oxOBJECT_CLASS, 1, 1);
  a->setClassName(className);
  return a;
}

oxArrayPtr oxDuplicateArray(const oxArray* array) { return array ? array->clone() : nullptr; }

void oxDestroyArray(oxArrayPtr& array) { array.reset(); }

void oxSetCell(oxArray* cellArray, std::size_t index, oxArrayPtr value) {
  if (!cellArray) throw std::invalid_argument("oxSetCell on a null array");
  cellArray->setCell(index, std::move(value));
}

const oxArray* oxGetCell(const oxArray* cellArray, std::size_t index) {
  return cellArray ? cellArray->cell(index) : nullptr;
}

void oxSetFieldByNumber(oxArray* structArray, std::size_t element, int field, oxArrayPtr value) {
  if (!structArray) throw std::invalid_argument("oxSetFieldByNumber on a null array");
  structArray->setFieldByNumber(element, field, std::move(value));
}

const oxArray* oxGetFieldByNumber(const oxArray* structArray, std::size_t element, int field) {
  return structArray ? structArray->get_struct_field_by_number(element, field) : nullptr;
}

const oxArray* oxGetField(const oxArray* structArray, std::size_t element, std::string_view name) {
  if (!structArray) return nullptr;
  return structArray->get_struct_field_by_number(element, structArray->fieldNumber(name));
}

void oxSetField(oxArray* structArray, std::size_t element, std::string_view name, oxArrayPtr value) {
  if (!structArray) throw std::invalid_argument("oxSetField on a null array");
  const int field = structArray->addField(name);
  structArray->setFieldByNumber(element, field, std::move(value));
}

std::size_t oxCalcSingleSubscript(const oxArray* array, std::initializer_list<std::size_t> subs) {
  // Column-major: index = row + rows * column (further dimensions are not used).
  const std::size_t rows = array ? array->rows() : 1;
  std::size_t index = 0;
  std::size_t stride = 1;
  std::size_t dim = 0;
  for (const std::size_t s : subs) {
    index += s * stride;
    stride *= (dim == 0 ? rows : (array ? array->cols() : 1));
    ++dim;
  }
  return index;
}

oxClassID oxGetClassID(const oxArray* array) { return array ? array->classID() : oxUNKNOWN_CLASS; }

std::size_t oxGetNumberOfElements(const oxArray* array) { return array ? array->numel() : 0; }

bool oxIsCharVector(const oxArray* array) {
  return array && array->classID() == oxCHAR_CLASS && (array->rows() <= 1 || array->cols() <= 1);
}

bool oxIsLogicalScalar(const oxArray* array) {
  return array && array->classID() == oxLOGICAL_CLASS && array->numel() == 1;
}

bool oxIsLogicalScalarTrue(const oxArray* array) {
  return oxIsLogicalScalar(array) && array->logicals()[0] != 0;
}

bool oxIsScalar(const oxArray* array) { return array && array->numel() == 1; }

bool oxIsVector(const oxArray* array) {
  return array && (array->rows() == 1 || array->cols() == 1);
}

bool oxIsNumeric(const oxArray* array) {
  if (!array) return false;
  const auto c = array->classID();
  return c == oxDOUBLE_CLASS || c == oxINT32_CLASS || c == oxUINT32_CLASS;
}

bool oxIsCell(const oxArray* array) { return array && array->classID() == oxCELL_CLASS; }

bool oxIsStruct(const oxArray* array) { return array && array->classID() == oxSTRUCT_CLASS; }

double oxGetScalar(const oxArray* array) {
  if (!array || array->isEmpty()) return 0.0;
  switch (array->classID()) {
    case oxDOUBLE_CLASS: return array->doubles()[0];
    case oxINT32_CLASS: return array->int32s()[0];
    case oxUINT32_CLASS: return array->uint32s()[0];
    case oxLOGICAL_CLASS: return array->logicals()[0];
    case oxCHAR_CLASS: return static_cast<unsigned char>(array->chars()[0]);
    default: return 0.0;
  }
}

std::string oxArrayToStdString(const oxArray* array) {
  if (!array || array->classID() != oxCHAR_CLASS) return {};
  return array->chars();
}
