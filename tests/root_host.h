// SPDX-License-Identifier: BSD-3-Clause
// A fixture for tests that meet the host's root: the stand-alone host, with
// a root of the test's choosing, installed for the test, and the current
// root put back afterwards.
#pragma once

#include <memory>
#include <string>

#include "collect_store_reset.h"
#include "host/host_bridge.h"
#include "host/standalone_bridge.h"

class RootHost : public StandaloneBridge {
 public:
  int call(std::string_view name, tgArrayView<oxArrayPtr> outputs, tgArrayView<const oxArray* const> inputs) override {
    if (name != "orreryroot") return StandaloneBridge::call(name, outputs, inputs);
    if (!outputs.empty()) outputs[0] = oxCreateString(root);
    return 0;
  }
  std::string root;
};

class RootHostTest : public CollectStoreTest {
 protected:
  void SetUp() override {
    CollectStoreTest::SetUp();
    savedRoot_ = hostRootPath();
    tgSetHostBridge(host);
  }
  void TearDown() override {
    tgSetHostBridge(nullptr);
    hostRootPathSet(savedRoot_);
    CollectStoreTest::TearDown();
  }

  std::shared_ptr<RootHost> host = std::make_shared<RootHost>();

 private:
  std::string savedRoot_;
};
