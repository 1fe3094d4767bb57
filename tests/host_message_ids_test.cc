// SPDX-License-Identifier: BSD-3-Clause
// Message IDs: names, argument counts, records, exception classes, catalogue.
// The catalogue's texts are compared with tests/golden/host_message_ids.txt.
#include <gtest/gtest.h>

#include <string>

#include "golden_text.h"
#include "scripting/errors.h"

namespace TG = tempogauge::TempoGauge;

namespace {

std::string line(const tempogauge::MessageRecord& record) {
  std::string text = record.name + "(";
  for (std::size_t i = 0; i < record.arguments.size(); ++i) text += (i ? ", " : "") + record.arguments[i];
  return text + "): " + tempogauge::messageText(record) + "\n";
}

// Every ID with numbered arguments, in the order of the list; then the
// arguments the handlers give where the plain sentence would mislead, and
// records of an unknown ID or with too few arguments.
TEST(MessageIds, CatalogueTextOfEveryId) {
  std::string text;
  for (const auto& id : TG::kAllMessageIds) {
    tempogauge::MessageRecord record{{}, std::string(tempogauge::kMessageComponent), std::string(id.name)};
    for (std::size_t i = 0; i < id.argumentCount; ++i) record.arguments.push_back("arg" + std::to_string(i + 1));
    text += line(record);
  }
  text += "\n";
  const std::vector<std::pair<std::string, std::vector<std::string>>> handlerArguments{
      {"MaxParamsExceeded", {"8"}},
      {"InvalidMetric", {"time", "basicmemory", "detailedmemory"}},
      {"DataWriteFail", {"System Information", "a.orf"}},
      // Both wordings of the missing html file end in one full stop.
      {"ExpectedNames", {"'htmlfile' must be set"}},
      {"ExpectedNames", {"'htmlfile' must be set."}},
      {"ExpectedNames", {"'grouping' or 'model'"}},
      {"ExpectedNames", {"'htmlfile' and one of 'lhsfile' or 'rhsfile' to be set."}},
      {"ParameterMismatchString", {"showmeta"}},
      {"ParameterMismatchString", {"Phase"}},
      {"UnexpectedValue", {"lhsfile"}},
      {"UnexpectedValue", {"MyGroup"}},
      // A comparison side taken from the live store has an empty file name.
      {"NoRawTracerDataLoaded", {""}},
      {"NoRawTracerDataLoaded", {"b.orf"}},
      {"NoSuchId", {"x", "y"}},
      {"OpenFileFailed", {}},
  };
  for (const auto& [name, arguments] : handlerArguments)
    text += line({arguments, std::string(tempogauge::kMessageComponent), name});
  tgtest::GoldenFile("host_message_ids").expect("catalogue", text);
  for (const auto& id : TG::kAllMessageIds) EXPECT_FALSE(tempogauge::messagePattern(id.name).empty()) << id.name;
}

TEST(MessageIds, RaisedRecordsHoldComponentNameAndArgumentsInOrder) {
  const auto record = TG::makeMessageRecord<TG::DataWriteFail>("Raw Data", std::string("run.orf"));
  EXPECT_EQ(record.fullId(), "tempogauge:TempoGauge:DataWriteFail");
  EXPECT_EQ(record.arguments, (std::vector<std::string>{"Raw Data", "run.orf"}));
  try {
    tgRaise<TG::MissingOrfExt>();
    FAIL() << "nothing thrown";
  } catch (const hfnd::except::IMsgIDException& e) {
    EXPECT_EQ(e.get_error_id(), "tempogauge:TempoGauge:MissingOrfExt");
    EXPECT_EQ(e.messageText(), "The file name must contain \".orf\", as in run.orf.");
    EXPECT_STREQ(e.what(), e.messageText().c_str());
  }
}

TEST(MessageIds, EachIdHasItsOwnExceptionClass) {
  // A handler that catches one ID does not catch another.
  bool caughtOwn = false;
  try {
    try {
      tgRaise<TG::MaxParamsExceeded>("8");
    } catch (const hfnd::except::Exception<TG::MinParamsNotReached>&) {
      FAIL() << "caught by the wrong class";
    }
  } catch (const hfnd::except::Exception<TG::MaxParamsExceeded>& e) {
    caughtOwn = true;
    EXPECT_EQ(e.record().arguments.at(0), "8");
  }
  EXPECT_TRUE(caughtOwn);
  // And every one of them is a std::exception too.
  EXPECT_THROW(tgRaise<TG::InvalidNames>(), std::exception);
}

TEST(MessageIds, CloneAndRethrowKeepTheRecord) {
  const auto copy = tgMakeError<TG::OpenFileFailed>("missing.orf").clone();
  try {
    copy->rethrow();
  } catch (const hfnd::except::Exception<TG::OpenFileFailed>& e) {
    EXPECT_EQ(e.record().arguments.at(0), "missing.orf");
    EXPECT_EQ(e.get_error_id(), "tempogauge:TempoGauge:OpenFileFailed");
    return;
  }
  FAIL() << "rethrow lost the class";
}

}  // namespace
