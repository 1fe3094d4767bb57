// Part of the public interface: declared in include/tempogauge/scripting/messages.h.
#pragma once

#include "tempogauge/scripting/messages.h"
