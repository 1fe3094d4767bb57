// SPDX-License-Identifier: BSD-3-Clause
// The message IDs of the scripting interface: one tag type per ID, each with
// its name and the number of text arguments it takes, and the factory that
// builds a message record for an ID from exactly that many arguments.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "tempogauge/scripting/message_record.h"

namespace tempogauge::TempoGauge {

#define TG_MESSAGE_ID(Name, Count)                          \
  struct Name {                                             \
    static constexpr std::string_view name = #Name;         \
    static constexpr std::size_t argumentCount = Count;     \
  };

TG_MESSAGE_ID(MinParamsNotReached, 1)             // the minimum count
TG_MESSAGE_ID(MaxParamsExceeded, 1)               // the maximum count
TG_MESSAGE_ID(ExpectedEvenNumberOfParameters, 0)  //
TG_MESSAGE_ID(ParameterMismatchString, 1)         // the parameter's name or label
TG_MESSAGE_ID(ParameterMismatchBoolean, 1)        // the parameter's label
TG_MESSAGE_ID(InvalidNames, 0)                    //
TG_MESSAGE_ID(ExpectedNames, 1)                   // what is missing
TG_MESSAGE_ID(InvalidMetric, 3)                   // the three valid metrics
TG_MESSAGE_ID(UnexpectedValue, 1)                 // option, grouping, or "ORRERY Root"
TG_MESSAGE_ID(OpenFileFailed, 1)                  // the file's name
TG_MESSAGE_ID(WriteFileFailed, 1)                 // the file's name
TG_MESSAGE_ID(DataWriteFail, 2)                   // the variable's label, the file's name
TG_MESSAGE_ID(MissingOrfExt, 0)                   //
TG_MESSAGE_ID(NoRawTracerData, 0)                 //
TG_MESSAGE_ID(NoRawTracerDataLoaded, 1)           // the file's name, empty for the live store
TG_MESSAGE_ID(AddGroupingError, 1)                // the text tgAddGrouping returned
TG_MESSAGE_ID(AddGroupingExpectedString, 0)       //
TG_MESSAGE_ID(RemoveGroupingError, 1)             // the grouping's name

#undef TG_MESSAGE_ID

struct MessageIdInfo {
  std::string_view name;
  std::size_t argumentCount;
};

// All 18 IDs, in the order above.
inline constexpr std::array<MessageIdInfo, 18> kAllMessageIds{{
    {MinParamsNotReached::name, MinParamsNotReached::argumentCount},
    {MaxParamsExceeded::name, MaxParamsExceeded::argumentCount},
    {ExpectedEvenNumberOfParameters::name, ExpectedEvenNumberOfParameters::argumentCount},
    {ParameterMismatchString::name, ParameterMismatchString::argumentCount},
    {ParameterMismatchBoolean::name, ParameterMismatchBoolean::argumentCount},
    {InvalidNames::name, InvalidNames::argumentCount},
    {ExpectedNames::name, ExpectedNames::argumentCount},
    {InvalidMetric::name, InvalidMetric::argumentCount},
    {UnexpectedValue::name, UnexpectedValue::argumentCount},
    {OpenFileFailed::name, OpenFileFailed::argumentCount},
    {WriteFileFailed::name, WriteFileFailed::argumentCount},
    {DataWriteFail::name, DataWriteFail::argumentCount},
    {MissingOrfExt::name, MissingOrfExt::argumentCount},
    {NoRawTracerData::name, NoRawTracerData::argumentCount},
    {NoRawTracerDataLoaded::name, NoRawTracerDataLoaded::argumentCount},
    {AddGroupingError::name, AddGroupingError::argumentCount},
    {AddGroupingExpectedString::name, AddGroupingExpectedString::argumentCount},
    {RemoveGroupingError::name, RemoveGroupingError::argumentCount},
}};

// Builds the record of ID `Tag`: sets the argument count, the component and
// the name, then stores each argument as text in its slot. The number of
// arguments is checked when the call is compiled.
template <class Tag, class... Args>
MessageRecord makeMessageRecord(Args&&... args) {
  static_assert(sizeof...(Args) == Tag::argumentCount, "wrong number of arguments for this message ID");
  static_assert((std::is_constructible_v<std::string, Args&&> && ...), "message arguments are texts");
  MessageRecord record;
  record.arguments.resize(Tag::argumentCount);
  record.component = std::string(kMessageComponent);
  record.name = std::string(Tag::name);
  [[maybe_unused]] std::size_t slot = 0;
  ((record.arguments[slot++] = std::string(std::forward<Args>(args))), ...);
  return record;
}

}  // namespace tempogauge::TempoGauge
