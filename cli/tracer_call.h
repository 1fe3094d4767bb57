// SPDX-License-Identifier: BSD-3-Clause
// How the tempogauge command reaches the tracer: the methods of
// GaugeKit.Tracer, found by name in the class registry and called with host
// arrays, exactly as the scripting hosts call them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/ox_array.h"

namespace tg::cli {

// Name/value inputs of a method call, built in order.
class MethodArgs {
 public:
  MethodArgs& text(std::string_view value);
  MethodArgs& flag(bool value);
  MethodArgs& option(std::string_view name, std::string_view value) { return text(name).text(value); }
  std::vector<oxArrayPtr> take() { return std::move(values_); }
  std::size_t size() const { return values_.size(); }

 private:
  std::vector<oxArrayPtr> values_;
};

// Calls GaugeKit.Tracer.<method>; failures travel out as the method's
// exceptions (message IDs) or objsys::CallError.
std::vector<oxArrayPtr> callTracer(std::string_view method, MethodArgs args, int nargout = 0);

}  // namespace tg::cli
