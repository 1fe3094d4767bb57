// Part of the public interface: declared in include/tempogauge/collect/module_entry.h.
#pragma once

#include "tempogauge/collect/module_entry.h"
