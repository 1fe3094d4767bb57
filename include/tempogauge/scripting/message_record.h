// SPDX-License-Identifier: BSD-3-Clause
// The message record that every scripting error carries: the component, the
// ID's name and the text arguments that fill in the catalogue's message.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tempogauge {

// Every message ID of this module starts with this component.
inline constexpr std::string_view kMessageComponent = "tempogauge:TempoGauge";

struct MessageRecord {
  std::vector<std::string> arguments;  // sized to the ID's argument count
  std::string component;               // always kMessageComponent
  std::string name;                    // the ID's name, e.g. "InvalidNames"

  // "tempogauge:TempoGauge:<name>"
  std::string fullId() const { return component + ":" + name; }
};

}  // namespace tempogauge
