// SPDX-License-Identifier: BSD-3-Clause
// Processed data points: one execution of a phase, made from a matched pair of
// raw points. Times are relative to the start of the trace, memory is the state
// at the phase's end with deltas against its start, and the point knows its
// place in the numbered call hierarchy. Three classes, one per raw point kind.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tempogauge/analysis/processed_mem_stats.h"
#include "tempogauge/collect/diagnostic_info.h"
#include "tempogauge/collect/raw_point.h"
#include "tempogauge/host/ox_array.h"

// Bits of a processed point's flags.
struct ProcessedFlags {
  std::uint32_t errorRow : 1;
  std::uint32_t gapRow : 1;
  std::uint32_t unused : 30;
};

class TGORRERYProcessedDataPoint : public TGDiagnosticInfo {
 public:
  // Copies grouping, phase and statistics ids and the gap bit of the raw point.
  TGORRERYProcessedDataPoint(const TGORRERYDataPoint& raw, std::int32_t rowNumber, std::int32_t depth);
  TGORRERYProcessedDataPoint(const TGORRERYProcessedDataPoint&) = delete;
  TGORRERYProcessedDataPoint& operator=(const TGORRERYProcessedDataPoint&) = delete;
  ~TGORRERYProcessedDataPoint() override;

  bool isErrorRow() const override { return flags.errorRow != 0; }
  bool isGapRow() const { return flags.gapRow != 0; }

  // 1 by 31 cells (33 Cogwheel, 35 Loomchart): kind, names, times, memory,
  // row bookkeeping.
  virtual oxArrayPtr toCellRow() const;
  virtual void appendDetailedMemCells(oxArray* row, std::size_t& column) const;  // ten doubles
  virtual void appendBasicMemCells(oxArray* row, std::size_t& column) const;     // six doubles
  virtual void appendRowInfoCells(oxArray* row, std::size_t& column) const;
  // Scalar struct of 31 fields (33, 35).
  virtual oxArrayPtr toStruct() const;

  // Same phase and grouping; the other's kind is not looked at.
  virtual bool isSamePhase(const TGORRERYProcessedDataPoint& other) const;
  // Key of the comparison's alignment: cleaned phase name (customization parts
  // stripped) followed by the names of grouping, model, target, machine and
  // chart that the kind has, without separators.
  virtual std::string comparisonKey() const;
  virtual void phaseIdentity(std::int32_t& phase, std::int32_t& modelOut, std::int32_t& chartOut) const;
  std::int32_t getPhaseID() const { return phaseID; }
  std::int32_t getGrouping() const { return grouping; }
  virtual std::int32_t getModel() const { return -1; }
  virtual std::int32_t getTarget() const { return -1; }
  virtual std::int32_t getMachine() const { return -1; }
  virtual std::int32_t getChart() const { return -1; }
  // Writes the sixteen memory fields of the struct form into element `index`.
  virtual void fillMemFields(oxArray* structArray, std::size_t index) const;

  std::int32_t pointType = 0;
  std::int32_t grouping = -1;
  std::int32_t phaseID = -1;
  std::int32_t statisticsType = -1;
  double wcStartTime = 0.0;
  double wcElapsedTime = 0.0;
  double cpuStartTime = 0.0;
  double cpuElapsedTime = 0.0;
  std::shared_ptr<tg::DetailedProcessedMemStats> detailedMem;
  std::shared_ptr<tg::BasicProcessedMemStats> basicMem;
  // For a phase with children: the start sample in mebibytes; zeros for a leaf.
  std::shared_ptr<tg::DetailedMemStats> detailedStartMem;
  ProcessedFlags flags{0, 0, 0};
  std::string HTMLPhaseNumString;
  std::int32_t HTMLRowNumber = 0;
  std::int32_t numChildren = 0;
  std::int32_t stackDepth = 0;
  std::vector<std::int32_t> childrenIDs;  // row numbers of all descendants, in start order
  std::int32_t parentPhaseID = -1;

 protected:
  // Names and field lists that the subclasses extend.
  virtual void appendIdentityCells(oxArray* row, std::size_t& column) const;
  virtual void fillIdentityFields(oxArray* structArray) const;
  virtual const std::vector<std::string>& structFieldNames() const;
  virtual std::size_t cellRowWidth() const { return 31; }
  // Field number of the first memory field in the struct form.
  virtual int firstMemField() const { return 8; }
};

class TGCWGENProcessedDataPoint : public TGORRERYProcessedDataPoint {
 public:
  TGCWGENProcessedDataPoint(const TGCWGENDataPoint& raw, std::int32_t rowNumber, std::int32_t depth);
  ~TGCWGENProcessedDataPoint() override;

  bool isSamePhase(const TGORRERYProcessedDataPoint& other) const override;
  std::string comparisonKey() const override;
  void phaseIdentity(std::int32_t& phase, std::int32_t& modelOut, std::int32_t& chartOut) const override;
  std::int32_t getModel() const override { return model; }
  std::int32_t getTarget() const override { return target; }
  // Four lines of an HTML table row naming grouping, model and target.
  virtual std::string phaseDetailRow() const;

  std::int32_t model = -1;
  std::int32_t target = -1;

 protected:
  void appendIdentityCells(oxArray* row, std::size_t& column) const override;
  void fillIdentityFields(oxArray* structArray) const override;
  const std::vector<std::string>& structFieldNames() const override;
  std::size_t cellRowWidth() const override { return 33; }
  int firstMemField() const override { return 10; }
};

class TGLCProcessedDataPoint : public TGCWGENProcessedDataPoint {
 public:
  TGLCProcessedDataPoint(const TGLoomchartDataPoint& raw, std::int32_t rowNumber, std::int32_t depth);
  ~TGLCProcessedDataPoint() override;

  bool isSamePhase(const TGORRERYProcessedDataPoint& other) const override;
  std::string comparisonKey() const override;
  void phaseIdentity(std::int32_t& phase, std::int32_t& modelOut, std::int32_t& chartOut) const override;
  std::int32_t getMachine() const override { return machine; }
  std::int32_t getChart() const override { return chart; }
  std::string phaseDetailRow() const override;

  std::int32_t machine = -1;
  std::int32_t chart = -1;

 protected:
  void appendIdentityCells(oxArray* row, std::size_t& column) const override;
  void fillIdentityFields(oxArray* structArray) const override;
  const std::vector<std::string>& structFieldNames() const override;
  std::size_t cellRowWidth() const override { return 35; }
  int firstMemField() const override { return 12; }
};

using ProcessedPointPtr = std::shared_ptr<TGORRERYProcessedDataPoint>;
using ProcessedPointVector = std::vector<ProcessedPointPtr>;

// Builds the class that matches the raw point's kind (1 Cogwheel, 2 Loomchart,
// anything else the host class).
ProcessedPointPtr makeProcessedPoint(const TGORRERYDataPoint& raw, std::int32_t rowNumber, std::int32_t depth);
