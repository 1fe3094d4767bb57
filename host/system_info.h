// SPDX-License-Identifier: BSD-3-Clause
// Facts about this machine from the operating system.
#pragma once

#include <string>

// The processor's description ("model name" of /proc/cpuinfo, or its nearest
// equivalent on other architectures); the machine type when there is none.
std::string tgProcessorName();

// The processor's speed in kHz: its nominal maximum frequency when the
// kernel reports one, else the current speed of /proc/cpuinfo; 0 if unknown.
double huCPUspeedOS();

// The number of processors online.
unsigned tgNumberOfCores();

// Total physical memory in bytes.
double tgTotalPhysicalMemoryBytes();

// The distribution's name (PRETTY_NAME of /etc/os-release), else the kernel's name.
std::string tgOperatingSystemName();

// Kernel name, release and machine type, e.g. "Linux 6.1.0-18-amd64 x86_64".
std::string tgKernelDescription();
