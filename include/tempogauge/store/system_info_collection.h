// SPDX-License-Identifier: BSD-3-Clause
// What machine and host the data is taken on: the system information record,
// collected once per process from the host (through the active host bridge)
// and the operating system, and the host's installation root.
#pragma once

#include <string>

#include "tempogauge/collect/system_info_record.h"

// Collects a fresh record into `record`, field by field in this order:
// processor, CPU speed, cores, physical memory, host version, Java version,
// operating system, installed products. A host query that fails leaves its
// field empty; an answer of the wrong form raises UnexpectedValue with the
// query's label, leaving the fields filled so far in place.
void querySystemInfo(TempoGaugingSystemInfo& record);

// Copies this process's record into `record`, collecting it at the first
// call. An exception during collection leaves it uncollected, so the next
// call starts over.
void collectSystemInfo(TempoGaugingSystemInfo& record);

// The process's cached record, collected at first use; the module owns it.
const TempoGaugingSystemInfo* getCachedSystemInfo();

// The CPU speed text of a speed in kHz: "2.6 GHz" above 1e6 kHz, else in MHz,
// with 5 significant digits.
std::string tgCpuSpeedText(double kiloHertz);

// The host's installation root, asked of the host at every call. When the
// host fails to answer, the last good answer (empty at first); an answer that
// is not a character vector raises UnexpectedValue with "ORRERY Root".
std::string getHostRoot();
