// Part of the public interface: declared in include/tempogauge/collect/mem_stats.h.
#pragma once

#include "tempogauge/collect/mem_stats.h"
