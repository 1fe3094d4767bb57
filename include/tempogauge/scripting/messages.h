// SPDX-License-Identifier: BSD-3-Clause
// The message catalogue: the text a user reads for each message ID, with the
// record's arguments filled in.
#pragma once

#include <string>
#include <string_view>

#include "tempogauge/scripting/message_record.h"

namespace tempogauge {

// The text of a record. An unknown ID, or a record with fewer arguments than
// its ID takes, still gives a readable sentence that names the ID.
std::string messageText(const MessageRecord& record);

// The catalogue's pattern of an ID's name, with {0}, {1}, ... where the
// arguments go; empty for an unknown name.
std::string_view messagePattern(std::string_view name);

}  // namespace tempogauge
