// SPDX-License-Identifier: BSD-3-Clause
// The system information record: what machine and host a trace came from.
#pragma once

#include <string>

struct TempoGaugingSystemInfo {
  std::string processorStr;
  std::string cpuSpeedStr;
  std::string numCoresStr;
  std::string totalPhysMemStr;
  std::string operatingSystemStr;
  std::string ORRERYVersionStr;
  std::string javaVMVersionStr;
  std::string installedProductsStr;
};
