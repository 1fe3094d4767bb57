// Part of the public interface: declared in include/tempogauge/collect/constants.h.
#pragma once

#include "tempogauge/collect/constants.h"
