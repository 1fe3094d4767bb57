// SPDX-License-Identifier: BSD-3-Clause
// The store's raw points, packed. A point of the basic kind (times, the three
// process counters, grouping, phase and statistics type ids, flags) takes 56
// bytes; a Cogwheel or Loomchart point adds its site ids, and a point with
// detailed statistics adds their five figures. Point objects are made on
// demand: reading a point gives a new object equal to the one stored, so the
// container reads like a vector of shared pointers to points.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <vector>

#include "tempogauge/collect/raw_point.h"

// Every field of a raw point, unpacked: what a point object holds, without
// the object. `pointClass` is the class of the object (0 TGORRERYDataPoint,
// 1 TGCWGENDataPoint, 2 TGLoomchartDataPoint) or -1 for a null pointer;
// `pointType` is the field, which a point read from a foreign row may have
// different from its class.
struct RawPointFields {
  // The state of a point's detailed record.
  enum class Detailed : std::uint8_t { kZero, kNull, kFigures };

  std::int32_t pointClass = 0;
  std::int32_t pointType = 0;
  std::int32_t groupingId = -1;
  std::int32_t phaseId = -1;
  std::int32_t statisticsTypeId = -1;
  std::int32_t modelId = -1;  // these four only for the derived classes
  std::int32_t targetId = -1;
  std::int32_t machineId = -1;
  std::int32_t chartId = -1;
  bool isStart = false;
  bool isGap = false;
  double wallTime = 0.0;
  double cpuTime = 0.0;
  bool hasBasic = true;                // false: a null basic record
  std::array<double, 3> basic{};       // usage, peak, page file (zeros when null)
  Detailed detailedState = Detailed::kZero;
  std::array<double, 5> detailed{};    // free, reserved, committed, dlls, nonprocess

  // The fields of `point` (null gives pointClass -1).
  static RawPointFields of(const TGORRERYDataPoint* point);
  // A new point object with these fields; null for pointClass -1. With
  // `asCopy`, null records become zero-filled ones, as a copy makes them.
  RawPointPtr toPoint(bool asCopy = false) const;
};

class RawPointStore {
 public:
  RawPointStore();
  RawPointStore(const RawPointStore&) = delete;
  RawPointStore& operator=(const RawPointStore&) = delete;
  ~RawPointStore();

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  void clear();

  // Appends a point; a null pointer is kept as one.
  void push_back(const RawPointPtr& point);
  void append(const RawPointFields& fields);
  // Replaces the whole content by `points`.
  void assign(const RawPointVector& points);

  RawPointFields fields(std::size_t index) const;
  // A new object equal to the stored point (null for a stored null).
  RawPointPtr at(std::size_t index) const;
  RawPointPtr operator[](std::size_t index) const { return at(index); }
  RawPointPtr front() const { return at(0); }
  RawPointPtr back() const { return at(size_ - 1); }

  // Calls f(const RawPointFields&) for each point in order.
  template <class F>
  void forEach(F&& f) const {
    RawPointFields fields;
    for (std::size_t i = 0; i < size_; ++i) {
      unpack(i, fields);
      f(static_cast<const RawPointFields&>(fields));
    }
  }
  // Removes the points for which pred(const RawPointFields&) holds, keeping
  // the order of the rest.
  template <class Pred>
  void eraseIf(Pred&& pred) {
    RawPointStore kept;
    forEach([&](const RawPointFields& fields) {
      if (!pred(fields)) kept.append(fields);
    });
    swap(kept);
  }
  void swap(RawPointStore& other) noexcept;

  // Iteration gives the points as new objects.
  class const_iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = RawPointPtr;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = RawPointPtr;
    const_iterator() = default;
    const_iterator(const RawPointStore* store, std::size_t index) : store_(store), index_(index) {}
    RawPointPtr operator*() const { return store_->at(index_); }
    const_iterator& operator++() {
      ++index_;
      return *this;
    }
    const_iterator operator++(int) {
      const_iterator old = *this;
      ++index_;
      return old;
    }
    bool operator==(const const_iterator& o) const { return index_ == o.index_; }
    bool operator!=(const const_iterator& o) const { return index_ != o.index_; }
    std::size_t index() const { return index_; }

   private:
    const RawPointStore* store_ = nullptr;
    std::size_t index_ = 0;
  };
  const_iterator begin() const { return {this, 0}; }
  const_iterator end() const { return {this, size_}; }

  // Inserts before `pos`; at the end this is an append, elsewhere the store
  // is rebuilt (only tests insert in the middle).
  void insert(const_iterator pos, const RawPointPtr& point);
  template <class It>
  void insert(const_iterator pos, It first, It last) {
    if (pos.index() == size_) {
      for (; first != last; ++first) push_back(*first);
      return;
    }
    RawPointVector all = toVector();
    all.insert(all.begin() + static_cast<std::ptrdiff_t>(pos.index()), first, last);
    assign(all);
  }

  // Bytes held for the points (records and their extras), for measurements.
  std::size_t bytesHeld() const;

 private:
  struct Chunk;
  void unpack(std::size_t index, RawPointFields& out) const;
  RawPointVector toVector() const;

  std::vector<std::unique_ptr<Chunk>> chunks_;
  std::size_t size_ = 0;
};
