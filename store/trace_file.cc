#include "store/trace_file.h"

#include <array>
#include <memory>
#include <mutex>

#include "collect/paths.h"
#include "collect/tempo_gauge.h"
#include "host/data_file.h"
#include "scripting/errors.h"
#include "store/raw_points_array.h"
#include "store/system_info_array.h"
#include "store/system_info_collection.h"

namespace TG = tempogauge::TempoGauge;

void saveTraceFile(std::string_view fileName, const RawPointVector& points) {
  orfFilePtr file = orfOpen(fileName, "w");
  if (!file) tgRaise<TG::OpenFileFailed>(fileName);

  const std::string root = getHostRoot();
  hostRootPathSet(root);

  struct Variable {
    std::string_view name;
    std::string_view label;
    oxArrayPtr value;
  };
  std::array<Variable, 3> variables{{
      {kRawDataVariable, "Raw Data", rawPointsToCellArray(points)},
      {kSystemInfoVariable, "System Information", systemInfoToArray()},
      {kHostRootVariable, "ORRERY Root", oxCreateString(root)},
  }};
  // A failed put fails the whole file: closing it then leaves nothing at the
  // name, and a trace saved there before stays as it was.
  for (auto& v : variables) {
    if (orfPutVariable(file.get(), v.name, v.value.get()) != 0) {
      orfClose(file);
      tgRaise<TG::DataWriteFail>(v.label, fileName);
    }
  }
  if (orfClose(file) != 0) tgRaise<TG::WriteFileFailed>(fileName);
}

bool loadTraceFile(std::string_view fileName, RawPointVector& points, TempoGaugingSystemInfo& info,
                   std::string& root) {
  orfFilePtr file = orfOpen(fileName, "r");
  if (!file) tgRaise<TG::OpenFileFailed>(fileName);
  {
    const oxArrayPtr raw = orfGetVariable(file.get(), kRawDataVariable);
    const oxArrayPtr system = orfGetVariable(file.get(), kSystemInfoVariable);
    const oxArrayPtr hostRoot = orfGetVariable(file.get(), kHostRootVariable);
    cellArrayToRawPoints(raw.get(), points);
    systemInfoFromArray(system.get(), info);
    root = oxArrayToStdString(hostRoot.get());
  }
  if (orfClose(file) != 0) tgRaise<TG::WriteFileFailed>(fileName);
  return true;
}

void replaceRawData(const RawPointVector& points) {
  TempoGauge* store = TempoGauge::instance();
  std::lock_guard lock(store->mutex());
  store->rawData = std::make_unique<RawPointVector>(points);
}

void replaceSystemInfo(const TempoGaugingSystemInfo& info) {
  TempoGauge* store = TempoGauge::instance();
  std::lock_guard lock(store->mutex());
  if (!store->loadedSystemInfo) store->loadedSystemInfo = std::make_unique<TempoGaugingSystemInfo>();
  *store->loadedSystemInfo = info;
}

void loadTraceIntoStore(std::string_view fileName) {
  RawPointVector points;
  TempoGaugingSystemInfo info;
  std::string root;
  if (!loadTraceFile(fileName, points, info, root)) tgRaise<TG::OpenFileFailed>(fileName);
  hostRootPathSet(root);
  replaceRawData(points);
  replaceSystemInfo(info);
}
