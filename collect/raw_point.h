// Part of the public interface: declared in include/tempogauge/collect/raw_point.h.
#pragma once

#include "tempogauge/collect/raw_point.h"
