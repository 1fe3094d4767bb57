// Persistence and host information: raw points and system information as host
// arrays, saved trace files, the host bridge, and the errors of the scripting
// interface that these raise.
#pragma once

#include "scripting/errors.h"
