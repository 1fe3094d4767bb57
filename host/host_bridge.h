// Part of the public interface: declared in include/tempogauge/host/host_bridge.h.
#pragma once

#include "tempogauge/host/host_bridge.h"
