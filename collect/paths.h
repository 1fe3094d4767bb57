// Part of the public interface: declared in include/tempogauge/collect/paths.h.
#pragma once

#include "tempogauge/collect/paths.h"
