// SPDX-License-Identifier: BSD-3-Clause
// Helpers for tests that call GaugeKit.Tracer methods through the class
// registry, as the hosts do, and look at the message ID a call raises.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "raised_text.h"
#include "scripting/errors.h"
#include "scripting/gaugekit_package.h"
#include "scripting/objsys.h"
#include "tempogauge/collect.h"

namespace scripting_test {

inline oxArrayPtr text(std::string_view value) { return oxCreateString(value); }
inline oxArrayPtr flag(bool value) { return oxCreateLogicalScalar(value); }
inline oxArrayPtr number(double value) { return oxCreateDoubleScalar(value); }
inline oxArrayPtr cells(std::initializer_list<std::string_view> values) {
  oxArrayPtr array = oxCreateCellMatrix(1, values.size());
  std::size_t i = 0;
  for (const auto value : values) oxSetCell(array.get(), i++, oxCreateString(value));
  return array;
}

template <class... Args>
std::vector<oxArrayPtr> inputs(Args&&... args) {
  std::vector<oxArrayPtr> list;
  (list.push_back(std::forward<Args>(args)), ...);
  return list;
}

inline std::vector<oxArrayPtr> call(std::string_view method, std::vector<oxArrayPtr> in, int nargout = 0) {
  ORInitialize_tempogauge();
  objsys::OBSMethodInfo* info = tgTracerClass()->findMethod(method);
  if (!info) throw std::runtime_error("no method " + std::string(method));
  return objsys::invokeMethod(*info, kTracerFullName, std::move(in), nargout);
}

// What a call raised: "<name>(arg,arg)" of the message record, "none" when
// it raised nothing, or the class system's own ID.
inline std::string raised(std::string_view method, std::vector<oxArrayPtr> in) {
  try {
    return tgtest::raisedText([&] { call(method, std::move(in)); });
  } catch (const objsys::CallError& e) {
    return e.id();
  }
}

}  // namespace scripting_test
