// SPDX-License-Identifier: BSD-3-Clause
#include "collect/module_entry.h"

#include <atomic>

extern "C" const char* const tempogauge_version;

namespace {

// Process-wide flags. All are constant-initialised, so they hold their start
// values before any static initialiser of the module runs.
std::atomic<bool> initializedFlag{false};
std::atomic<bool> packageRegisteredFlag{false};
std::atomic<bool> terminatedFlag{false};
std::atomic<void (*)()> packageRegistrar{nullptr};

constexpr TempoGaugeFunctionTable kFunctionTable{
    "tempogauge", &tempogauge_version, &ORInitialize_tempogauge, &ORTerminate_tempogauge};

}  // namespace

void tgSetPackageRegistrar(void (*registrar)()) { packageRegistrar.store(registrar); }

void (*tgPackageRegistrar())() { return packageRegistrar.load(); }

extern "C" {

void tgRegisterGaugeKitOBSPackage() {
  void (*const registrar)() = packageRegistrar.load();
  if (!registrar) return;
  // The flag is set before anything else, so a registrar that fails is not
  // retried and concurrent callers register once.
  if (packageRegisteredFlag.exchange(true)) return;
  registrar();
}

void tgUnregisterGaugeKitOBSPackage() {}

void initialize_tempogauge() {
  if (initializedFlag.exchange(true)) return;
  tgRegisterGaugeKitOBSPackage();
}

void ORInitialize_tempogauge() { initialize_tempogauge(); }

void destroy_tempogauge() { terminatedFlag.store(true); }

bool ORTerminate_tempogauge() { return terminatedFlag.exchange(true); }

const void* QueryORFcnTable_tempogauge() { return &kFunctionTable; }

}  // extern "C"

bool tgModuleInitialized() { return initializedFlag.load(); }
bool tgModuleTerminated() { return terminatedFlag.load(); }
bool tgPackageRegistered() { return packageRegisteredFlag.load(); }
