#include "store/trace_file.h"

#include <functional>
#include <memory>
#include <mutex>

#include "collect/paths.h"
#include "collect/tempo_gauge.h"
#include "host/data_file.h"
#include "host/data_file_rows.h"
#include "scripting/errors.h"
#include "store/raw_points_array.h"
#include "store/raw_points_element.h"
#include "store/system_info_array.h"
#include "store/system_info_collection.h"

namespace TG = tempogauge::TempoGauge;

namespace {

// The steps of both saves; `count` and `walk` give the points. The rows are
// written straight from the points' fields, without host arrays.
void saveTrace(std::string_view fileName, const std::function<std::size_t()>& count, const RawPointWalk& walk) {
  orfFilePtr file = orfOpen(fileName, "w");
  if (!file) tgRaise<TG::OpenFileFailed>(fileName);

  const std::string root = getHostRoot();
  hostRootPathSet(root);

  // A failed put fails the whole file: closing it then leaves nothing at the
  // name, and a trace saved there before stays as it was.
  const auto failed = [&](std::string_view label) {
    orfClose(file);
    tgRaise<TG::DataWriteFail>(label, fileName);
  };
  if (orfPutRows(file.get(), [&](tg::level5::RowDeflater& out) {
        return writeRawPointsElement(out, kRawDataVariable, count(), walk);
      }) != 0)
    failed("Raw Data");
  if (orfPutVariable(file.get(), kSystemInfoVariable, systemInfoToArray().get()) != 0) failed("System Information");
  if (orfPutVariable(file.get(), kHostRootVariable, oxCreateString(root).get()) != 0) failed("ORRERY Root");
  if (orfClose(file) != 0) tgRaise<TG::WriteFileFailed>(fileName);
}

}  // namespace

void saveTraceFile(std::string_view fileName, const RawPointVector& points) {
  saveTrace(
      fileName, [&] { return points.size(); },
      [&](const std::function<void(const RawPointFields&)>& take) {
        for (const RawPointPtr& point : points) take(RawPointFields::of(point.get()));
      });
}

void saveStoreTraceFile(std::string_view fileName) {
  TempoGauge* store = TempoGauge::instance();
  std::unique_lock lock(store->mutex(), std::defer_lock);
  saveTrace(
      fileName,
      [&] {
        // Held from the count to the last row, so that both walks see the same points.
        lock.lock();
        return store->rawData ? store->rawData->size() : 0;
      },
      [&](const std::function<void(const RawPointFields&)>& take) { store->walkRawCopies(take); });
}

namespace {

// Reads a saved trace file, handing each point's fields to `take`.
void readTrace(std::string_view fileName, const std::function<void(const RawPointFields&)>& take,
               TempoGaugingSystemInfo& info, std::string& root) {
  orfFilePtr file = orfOpen(fileName, "r");
  if (!file) tgRaise<TG::OpenFileFailed>(fileName);
  {
    const orfHeldVariable raw = orfVariableHeld(file.get(), kRawDataVariable);
    if (raw.element) readRawPointsElement(*raw.element, raw.swapped, take);
    // A damaged stream is a file that does not open.
    if (raw.compressed && !readRawPointsStream(*raw.compressed, raw.swapped, take))
      tgRaise<TG::OpenFileFailed>(fileName);
    // Either may be absent (older files), but one that is there and does
    // not decode is damage.
    const auto optional = [&](std::string_view name) {
      oxArrayPtr array = orfGetVariable(file.get(), name);
      const orfHeldVariable held = orfVariableHeld(file.get(), name);
      if (!array && (held.element || held.compressed)) tgRaise<TG::OpenFileFailed>(fileName);
      return array;
    };
    const oxArrayPtr system = optional(kSystemInfoVariable);
    const oxArrayPtr hostRoot = optional(kHostRootVariable);
    systemInfoFromArray(system.get(), info);
    root = oxArrayToStdString(hostRoot.get());
  }
  if (orfClose(file) != 0) tgRaise<TG::WriteFileFailed>(fileName);
}

}  // namespace

bool loadTraceFile(std::string_view fileName, RawPointVector& points, TempoGaugingSystemInfo& info,
                   std::string& root) {
  RawPointVector read;
  readTrace(fileName, [&](const RawPointFields& f) { read.push_back(f.toPoint()); }, info, root);
  points.insert(points.end(), read.begin(), read.end());
  return true;
}

void replaceRawData(const RawPointVector& points) {
  TempoGauge* store = TempoGauge::instance();
  std::lock_guard lock(store->mutex());
  if (!store->rawData) store->rawData = std::make_unique<RawPointStore>();
  store->rawData->assign(points);
}

void replaceSystemInfo(const TempoGaugingSystemInfo& info) {
  TempoGauge* store = TempoGauge::instance();
  std::lock_guard lock(store->mutex());
  if (!store->loadedSystemInfo) store->loadedSystemInfo = std::make_unique<TempoGaugingSystemInfo>();
  *store->loadedSystemInfo = info;
}

void loadTraceIntoStore(std::string_view fileName) {
  // Read into a store of its own, packed as read, which then takes the
  // place of the live one.
  auto points = std::make_unique<RawPointStore>();
  TempoGaugingSystemInfo info;
  std::string root;
  readTrace(fileName, [&](const RawPointFields& f) { points->append(f); }, info, root);
  hostRootPathSet(root);
  {
    TempoGauge* store = TempoGauge::instance();
    std::lock_guard lock(store->mutex());
    store->rawData = std::move(points);
  }
  replaceSystemInfo(info);
}
