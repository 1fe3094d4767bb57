#include "host/ox_array.h"

#include <algorithm>
#include <stdexcept>

oxArray::oxArray(oxClassID cls, std::size_t rows, std::size_t cols)
    : cls_(cls), rows_(rows), cols_(cols) {
  const std::size_t n = rows * cols;
  switch (cls) {
    case oxDOUBLE_CLASS: real_.assign(n, 0.0); break;
    case oxINT32_CLASS: i32_.assign(n, 0); break;
    case oxUINT32_CLASS: u32_.assign(n, 0); break;
    case oxLOGICAL_CLASS: logical_.assign(n, 0); break;
    case oxCHAR_CLASS: chars_.assign(n, '\0'); break;
    case oxCELL_CLASS: slots_.resize(n); break;
    default: break;  // struct and object slots grow with their fields
  }
}

oxArray::~oxArray() = default;

const oxArray* oxArray::cell(std::size_t index) const {
  if (cls_ != oxCELL_CLASS || index >= slots_.size()) return nullptr;
  return slots_[index].get();
}

oxArray* oxArray::cell(std::size_t index) {
  if (cls_ != oxCELL_CLASS || index >= slots_.size()) return nullptr;
  return slots_[index].get();
}

void oxArray::setCell(std::size_t index, oxArrayPtr value) {
  if (cls_ != oxCELL_CLASS) throw std::logic_error("oxSetCell on an array that is not a cell array");
  if (index >= slots_.size()) throw std::out_of_range("oxSetCell index beyond the array");
  slots_[index] = std::move(value);
}

int oxArray::fieldNumber(std::string_view name) const {
  const auto it = std::find(fields_.begin(), fields_.end(), name);
  return it == fields_.end() ? -1 : static_cast<int>(it - fields_.begin());
}

int oxArray::addField(std::string_view name) {
  if (const int existing = fieldNumber(name); existing >= 0) return existing;
  const std::size_t oldCount = fields_.size();
  // Values are stored element by element; make room for the new field in each.
  std::vector<oxArrayPtr> grown(numel() * (oldCount + 1));
  for (std::size_t e = 0; e < numel(); ++e)
    for (std::size_t f = 0; f < oldCount; ++f)
      grown[e * (oldCount + 1) + f] = std::move(slots_[e * oldCount + f]);
  slots_ = std::move(grown);
  fields_.emplace_back(name);
  return static_cast<int>(oldCount);
}

const oxArray* oxArray::get_struct_field_by_number(std::size_t element, int field) const {
  if ((cls_ != oxSTRUCT_CLASS && cls_ != oxOBJECT_CLASS) || field < 0 ||
      static_cast<std::size_t>(field) >= fields_.size() || element >= numel())
    return nullptr;
  return slots_[element * fields_.size() + static_cast<std::size_t>(field)].get();
}

void oxArray::setFieldByNumber(std::size_t element, int field, oxArrayPtr value) {
  if (cls_ != oxSTRUCT_CLASS && cls_ != oxOBJECT_CLASS)
    throw std::logic_error("oxSetFieldByNumber on an array that is not a struct");
  if (field < 0 || static_cast<std::size_t>(field) >= fields_.size() || element >= numel())
    throw std::out_of_range("oxSetFieldByNumber beyond the struct's fields or elements");
  slots_[element * fields_.size() + static_cast<std::size_t>(field)] = std::move(value);
}

bool oxArray::is_integer() const { return cls_ == oxINT32_CLASS || cls_ == oxUINT32_CLASS; }

oxArrayPtr oxArray::clone() const {
  auto copy = std::make_unique<oxArray>(cls_, rows_, cols_);
  copy->real_ = real_;
  copy->i32_ = i32_;
  copy->u32_ = u32_;
  copy->logical_ = logical_;
  copy->chars_ = chars_;
  copy->fields_ = fields_;
  copy->className_ = className_;
  copy->slots_.resize(slots_.size());
  for (std::size_t i = 0; i < slots_.size(); ++i)
    if (slots_[i]) copy->slots_[i] = slots_[i]->clone();
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
