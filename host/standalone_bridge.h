// SPDX-License-Identifier: BSD-3-Clause
// The bridge used when no host is attached: answers the few host functions
// the module asks for from the operating system and the build.
//
//   orreryroot                          the folder the library is installed in
//   version, version -java              the module's version; no Java VM
//   evalc ver                           the installed products (this module)
//   system_dependent getcpu/getos/getwinsys
//   feature numCores                    the number of online processors
//
// Any other function or argument fails with a non-zero status.
#pragma once

#include "host/host_bridge.h"

class StandaloneBridge : public HostBridge {
 public:
  int call(std::string_view name, tgArrayView<oxArrayPtr> outputs,
           tgArrayView<const oxArray* const> inputs) override;
  void print(std::string_view text) override;
};

// The installation root of the stand-alone host: the folder that holds the
// library, or its parent when that folder is lib, lib64 or bin.
std::string tgStandaloneRoot();
