// SPDX-License-Identifier: BSD-3-Clause
// Raw data points: one start or end of a phase, with its time and memory
// samples. Three classes form a chain, one per tool that logs. Points hold ids;
// names live in the store's tables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tempogauge/collect/diagnostic_info.h"
#include "tempogauge/collect/mem_stats.h"
#include "tempogauge/host/ox_array.h"

// Bits of a point's flags.
struct SampleFlags {
  std::uint32_t isStart : 1;
  std::uint32_t isGap : 1;
  std::uint32_t unused : 30;
};

// Position in a cell row: each read or write of a cell uses (row, column) and
// then moves one column on.
struct cellCursor {
  std::size_t row = 0;
  std::size_t column = 0;
};

class TGORRERYDataPoint {
 public:
  TGORRERYDataPoint();
  TGORRERYDataPoint(const TGORRERYDataPoint& other);
  explicit TGORRERYDataPoint(const oxArray* cellRow);
  TGORRERYDataPoint& operator=(const TGORRERYDataPoint&) = delete;
  virtual ~TGORRERYDataPoint();

  virtual oxArrayPtr toCellArray() const;
  virtual std::string writeDiagnosticRow(std::int32_t mode,
                                         const std::shared_ptr<const TGDiagnosticInfo>& info) const;
  virtual bool isSameSite(const std::shared_ptr<const TGORRERYDataPoint>& other) const;
  virtual std::string writeStatsCells() const;
  virtual std::string writeBlankCell() const;
  virtual std::string writeGroupingCell() const;
  virtual std::string writeStartEndCell() const;
  virtual std::string writePhaseCell() const;
  virtual std::string writeRowOpen(bool errorRow) const;
  virtual std::string writeRowClose() const;
  virtual std::string writeTypeCell() const;
  virtual void putDetailedMemStats(oxArray* row, cellCursor& cursor) const;
  virtual void putBasicMemStats(oxArray* row, cellCursor& cursor) const;
  virtual void getDetailedMemStats(const oxArray* row, cellCursor& cursor);
  virtual void getBasicMemStats(const oxArray* row, cellCursor& cursor);

  bool isStart() const { return flags.isStart != 0; }
  bool isGap() const { return flags.isGap != 0; }

  std::int32_t pointType = 0;
  std::int32_t groupingId = -1;
  std::int32_t phaseId = -1;
  std::int32_t statisticsTypeId = -1;
  SampleFlags flags{0, 0, 0};
  double wallTime = 0.0;
  double cpuTime = 0.0;
  std::shared_ptr<tg::BasicMemStats> basicMemStats;
  std::shared_ptr<tg::DetailedMemStats> detailedMemStats;

 protected:
  // Cells shared by the rows of all three classes.
  void putLeadingCells(oxArray* row, cellCursor& cursor) const;  // tag, type, phase, grouping
  void putTrailingCells(oxArray* row, cellCursor& cursor) const;  // stats type .. memory
  // Reads the version tag; true when the fields that follow are to be read.
  static bool readVersionTag(const oxArray* row, cellCursor& cursor);
  void readLeadingFields(const oxArray* row, cellCursor& cursor);   // type, phase, grouping
  void readTrailingFields(const oxArray* row, cellCursor& cursor);  // stats type .. cpu time
  struct FromCellRowTag {};
  explicit TGORRERYDataPoint(FromCellRowTag);  // root defaults of a row being read
};

class TGCWGENDataPoint : public TGORRERYDataPoint {
 public:
  TGCWGENDataPoint();
  TGCWGENDataPoint(const TGCWGENDataPoint& other);
  explicit TGCWGENDataPoint(const oxArray* cellRow);
  ~TGCWGENDataPoint() override;

  oxArrayPtr toCellArray() const override;
  std::string writeDiagnosticRow(std::int32_t mode,
                                 const std::shared_ptr<const TGDiagnosticInfo>& info) const override;
  bool isSameSite(const std::shared_ptr<const TGORRERYDataPoint>& other) const override;
  std::string writeTypeCell() const override;
  virtual std::string writeModelCell() const;
  virtual std::string writeTargetCell() const;

  std::int32_t modelId = -1;
  std::int32_t targetId = -1;

 protected:
  void putModelTargetCells(oxArray* row, cellCursor& cursor) const;
  void readModelTargetFields(const oxArray* row, cellCursor& cursor);
};

class TGLoomchartDataPoint : public TGCWGENDataPoint {
 public:
  TGLoomchartDataPoint();
  TGLoomchartDataPoint(const TGLoomchartDataPoint& other);
  explicit TGLoomchartDataPoint(const oxArray* cellRow);
  ~TGLoomchartDataPoint() override;

  oxArrayPtr toCellArray() const override;
  std::string writeDiagnosticRow(std::int32_t mode,
                                 const std::shared_ptr<const TGDiagnosticInfo>& info) const override;
  bool isSameSite(const std::shared_ptr<const TGORRERYDataPoint>& other) const override;
  std::string writeTypeCell() const override;
  virtual std::string writeMachineCell() const;
  virtual std::string writeChartCell() const;

  std::int32_t machineId = -1;
  std::int32_t chartId = -1;
};

using RawPointPtr = std::shared_ptr<TGORRERYDataPoint>;
using RawPointVector = std::vector<RawPointPtr>;
