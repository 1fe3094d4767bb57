// SPDX-License-Identifier: GPL-3.0-or-later
// The host bridge of the Octave adapter: the module's questions to its host
// are answered by the running Octave interpreter, and its console output goes
// to Octave's.
#pragma once

#include "host/host_bridge.h"

namespace tg::octave_adapter {

class OctaveBridge : public HostBridge {
 public:
  // "orreryroot" answers OCTAVE_HOME, "feature numCores" nproc; "version",
  // "evalc" and other Octave functions are called as they are. Questions
  // Octave has no answer to ("version -java", "system_dependent ...") go to
  // the stand-alone bridge; anything that fails gives a non-zero status.
  int call(std::string_view name, tgArrayView<oxArrayPtr> outputs,
           tgArrayView<const oxArray* const> inputs) override;
  void print(std::string_view text) override;
};

}  // namespace tg::octave_adapter
