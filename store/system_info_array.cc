// SPDX-License-Identifier: BSD-3-Clause
#include "store/system_info_array.h"

#include <string>
#include <vector>

#include "store/system_info_collection.h"

namespace {

std::array<std::string*, 8> fieldsOf(TempoGaugingSystemInfo& r) {
  return {&r.processorStr,       &r.cpuSpeedStr,      &r.numCoresStr,      &r.totalPhysMemStr,
          &r.operatingSystemStr, &r.ORRERYVersionStr, &r.javaVMVersionStr, &r.installedProductsStr};
}

}  // namespace

oxArrayPtr systemInfoToArray() { return systemInfoToArray(*getCachedSystemInfo()); }

oxArrayPtr systemInfoToArray(const TempoGaugingSystemInfo& record) {
  const std::vector<std::string> names(kSystemInfoFieldNames.begin(), kSystemInfoFieldNames.end());
  auto info = oxCreateStructArray(1, 1, names);
  TempoGaugingSystemInfo copy = record;
  const auto fields = fieldsOf(copy);
  for (std::size_t f = 0; f < fields.size(); ++f)
    oxSetFieldByNumber(info.get(), 0, static_cast<int>(f), oxCreateString(*fields[f]));
  return info;
}

void systemInfoFromArray(const oxArray* array, TempoGaugingSystemInfo& record) {
  const oxClassID cls = oxGetClassID(array);
  if (cls != oxSTRUCT_CLASS && cls != oxOBJECT_CLASS) return;
  const auto fields = fieldsOf(record);
  for (std::size_t f = 0; f < fields.size(); ++f) {
    const oxArray* value = array->get_struct_field_by_number(0, static_cast<int>(f));
    *fields[f] = oxIsCharVector(value) ? oxArrayToStdString(value) : std::string();
  }
}
