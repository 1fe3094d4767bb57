// SPDX-License-Identifier: BSD-3-Clause
// The module's load and unload entry points and the hook through which the
// scripting package gets registered with the class system.
#pragma once

#include <cstdint>

// Installs the function that registers the scripting package (null removes
// it). The scripting code installs it from its own static initialiser, so
// that collection has no link dependency on scripting.
void tgSetPackageRegistrar(void (*registrar)());
void (*tgPackageRegistrar())();  // the installed registrar, or null

extern "C" {
// Set the initialised flag (once) and register the package unless it is.
void initialize_tempogauge();
void ORInitialize_tempogauge();
// Register the package unless it is: sets the registered flag, then calls the
// installed registrar once. Without a registrar nothing happens and the flag
// stays clear, so a later call can still register.
void tgRegisterGaugeKitOBSPackage();
// Nothing is ever removed from the class system.
void tgUnregisterGaugeKitOBSPackage();
// Set the terminated flag; nothing is freed and logging keeps working.
void destroy_tempogauge();
bool ORTerminate_tempogauge();  // returns the flag's previous value
// The module's constant function table record, for the host's module loader.
const void* QueryORFcnTable_tempogauge();
}

// The record behind QueryORFcnTable_tempogauge.
struct TempoGaugeFunctionTable {
  const char* moduleName;
  const char* const* version;
  void (*initialize)();
  bool (*terminate)();
};

// The module's flags, for tests and diagnostics.
bool tgModuleInitialized();
bool tgModuleTerminated();
bool tgPackageRegistered();
