// Part of the public interface: declared in include/tempogauge/collect/diagnostic_info.h.
#pragma once

#include "tempogauge/collect/diagnostic_info.h"
