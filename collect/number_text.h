// Part of the public interface: declared in include/tempogauge/collect/number_text.h.
#pragma once

#include "tempogauge/collect/number_text.h"
