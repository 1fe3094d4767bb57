// SPDX-License-Identifier: BSD-3-Clause
// The bridge to the host: how the module calls functions of the host it runs
// in, and where its console output goes. One bridge is active per process.
// Without a host (the library used from C++ or the tempogauge command) the
// stand-alone bridge answers from the operating system and the build; the
// Octave adapter installs a bridge that asks Octave itself.
#pragma once

#include <memory>
#include <string_view>

#include "tempogauge/host/array_view.h"
#include "tempogauge/host/ox_array.h"

class HostBridge {
 public:
  virtual ~HostBridge() = default;

  // Calls the host function `name` with `inputs`. On success returns 0 and
  // sets each element of `outputs` (as many as the caller wants, possibly
  // none). On failure returns a non-zero status; outputs are then undefined
  // and the caller destroys them. Must not throw for an unknown function.
  virtual int call(std::string_view name, tgArrayView<oxArrayPtr> outputs,
                   tgArrayView<const oxArray* const> inputs) = 0;

  // Writes text to the host's console, as is (no newline added).
  virtual void print(std::string_view text) = 0;
};

// The active bridge: the installed one, else the process's stand-alone bridge.
std::shared_ptr<HostBridge> tgHostBridge();

// Installs `bridge` as the active bridge (null goes back to the stand-alone
// one) and routes tgHostPrintf through its print.
void tgSetHostBridge(std::shared_ptr<HostBridge> bridge);

// Calls a host function through the active bridge, as the host's call-back
// API does: nlhs outputs in plhs, nrhs inputs in prhs; 0 on success.
int oexCallORRERY(int nlhs, oxArrayPtr* plhs, int nrhs, const oxArray* const* prhs, std::string_view name);

// The command distributor: runs a host function with no outputs,
// synchronously, and throws std::runtime_error naming the function when the
// host reports a failure.
void tgRunHostCommand(std::string_view function, tgArrayView<const oxArray* const> arguments);
