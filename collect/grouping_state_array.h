// Part of the public interface: declared in include/tempogauge/collect/grouping_state_array.h.
#pragma once

#include "tempogauge/collect/grouping_state_array.h"
