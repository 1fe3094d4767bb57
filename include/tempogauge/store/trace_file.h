// SPDX-License-Identifier: BSD-3-Clause
// Saved trace files: a host data file with three variables, in this order:
//   TempoGaugingRawDataVector  the raw points as a 1 by N cell array of rows
//   TempoGaugingSystemInfo     the system information struct
//   ORRERYRoot                 the host's root on the saving machine
// Phase names in the rows have that root stripped; loading makes the file's
// root the current one, so names from the same machine are stripped alike.
#pragma once

#include <string>
#include <string_view>

#include "tempogauge/collect/raw_point.h"
#include "tempogauge/collect/system_info_record.h"

inline constexpr std::string_view kRawDataVariable = "TempoGaugingRawDataVector";
inline constexpr std::string_view kSystemInfoVariable = "TempoGaugingSystemInfo";
inline constexpr std::string_view kHostRootVariable = "ORRERYRoot";
inline constexpr std::string_view CW_STARTUP_FILE = "CWStartupData.orf";
inline constexpr std::string_view kTraceFileExtension = ".orf";

// Writes `points` to a new file `fileName`, in the steps the two save methods
// share: open for writing (else OpenFileFailed with the name); ask the host
// for its root and make it the current root (before the rows are made, as
// their phase names are cleaned against it); convert the points, this
// machine's system information and the root; put the three variables in
// order. A failed put raises DataWriteFail with "Raw Data", "System
// Information" or "ORRERY Root" and the name, and leaves the variables put
// before it in the file. The file's extension is not checked.
void saveTraceFile(std::string_view fileName, const RawPointVector& points);

// saveTraceFile of the store's points as copyRawPoints gives them, written
// straight from the store under its lock.
void saveStoreTraceFile(std::string_view fileName);

// Reads a saved trace file: appends its points to `points`, fills `info`
// from its system information and sets `root` to its root. A missing
// variable gives no points, an unchanged record or an empty root. Raises
// OpenFileFailed with the name when the file cannot be opened as a data
// file, and WriteFileFailed with the name when closing it fails; returns
// true otherwise. Names in the rows are interned as they are read.
bool loadTraceFile(std::string_view fileName, RawPointVector& points, TempoGaugingSystemInfo& info,
                   std::string& root);

// Replaces the store's raw points by copies of these shared pointers.
void replaceRawData(const RawPointVector& points);

// Makes `info` the store's loaded system information.
void replaceSystemInfo(const TempoGaugingSystemInfo& info);

// Loads a saved trace file into the store: its root becomes the current
// root, its points replace the store's, its record becomes the loaded system
// information. The store is unchanged when loadTraceFile raises.
void loadTraceIntoStore(std::string_view fileName);
