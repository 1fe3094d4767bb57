// SPDX-License-Identifier: BSD-3-Clause
// Message IDs: names, argument counts, records, exception classes, catalogue.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "scripting/errors.h"

namespace TG = tempogauge::TempoGauge;

namespace {

template <class Tag, class... Args>
void expectRaised(const std::string& text, Args&&... args) {
  try {
    tgRaise<Tag>(std::forward<Args>(args)...);
    FAIL() << "nothing thrown";
  } catch (const hfnd::except::IMsgIDException& e) {
    EXPECT_EQ(e.get_error_id(), "tempogauge:TempoGauge:" + std::string(Tag::name));
    EXPECT_EQ(e.messageText(), text);
    EXPECT_STREQ(e.what(), text.c_str());
  }
}

}  // namespace

TEST(MessageIds, AllEighteenWithTheirArgumentCounts) {
  std::set<std::string_view> names;
  std::size_t withArguments = 0;
  for (const auto& id : TG::kAllMessageIds) {
    names.insert(id.name);
    EXPECT_LE(id.argumentCount, 3u) << id.name;
    if (id.argumentCount > 0) ++withArguments;
    EXPECT_FALSE(tempogauge::messagePattern(id.name).empty()) << id.name << " has no catalogue text";
  }
  EXPECT_EQ(names.size(), 18u);
  EXPECT_EQ(withArguments, 13u);
  EXPECT_EQ(TG::InvalidMetric::argumentCount, 3u);
  EXPECT_EQ(TG::DataWriteFail::argumentCount, 2u);
  EXPECT_EQ(TG::MissingOrfExt::argumentCount, 0u);
}

TEST(MessageIds, RecordHoldsComponentNameAndArgumentsInOrder) {
  const auto record = TG::makeMessageRecord<TG::DataWriteFail>("Raw Data", std::string("run.orf"));
  EXPECT_EQ(record.component, "tempogauge:TempoGauge");
  EXPECT_EQ(record.name, "DataWriteFail");
  ASSERT_EQ(record.arguments.size(), 2u);
  EXPECT_EQ(record.arguments[0], "Raw Data");
  EXPECT_EQ(record.arguments[1], "run.orf");
  EXPECT_EQ(record.fullId(), "tempogauge:TempoGauge:DataWriteFail");
  EXPECT_TRUE(TG::makeMessageRecord<TG::NoRawTracerData>().arguments.empty());
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
  const auto original = tgMakeError<TG::OpenFileFailed>("missing.orf");
  const auto copy = original.clone();
  try {
    copy->rethrow();
  } catch (const hfnd::except::Exception<TG::OpenFileFailed>& e) {
    EXPECT_EQ(e.record().arguments.at(0), "missing.orf");
    EXPECT_EQ(e.get_error_id(), "tempogauge:TempoGauge:OpenFileFailed");
    return;
  }
  FAIL() << "rethrow lost the class";
}

TEST(MessageIds, CatalogueFillsTheArgumentsInOrder) {
  expectRaised<TG::MaxParamsExceeded>("Too many input arguments: this method takes at most 8.", "8");
  expectRaised<TG::InvalidMetric>("Invalid metric: use 'time', 'basicmemory' or 'detailedmemory'.", "time",
                                  "basicmemory", "detailedmemory");
  expectRaised<TG::DataWriteFail>("Could not write the System Information to the file 'a.orf'.",
                                  "System Information", "a.orf");
}

TEST(MessageIds, CatalogueSentencesReadWell) {
  // Both wordings of the missing html file end in one full stop.
  expectRaised<TG::ExpectedNames>("A required option is missing: 'htmlfile' must be set.", "'htmlfile' must be set");
  expectRaised<TG::ExpectedNames>("A required option is missing: 'htmlfile' must be set.", "'htmlfile' must be set.");
  // Where the ID's own sentence would mislead, the text says what was expected.
  expectRaised<TG::ParameterMismatchString>("The option 'showmeta' takes a logical scalar (true or false).",
                                            "showmeta");
  expectRaised<TG::ParameterMismatchString>("Phase must be a character vector.", "Phase");
  expectRaised<TG::UnexpectedValue>("The value of the option 'lhsfile' must be a character vector.", "lhsfile");
  expectRaised<TG::UnexpectedValue>(
      "Unexpected value for 'MyGroup': to add a grouping, give its members as a cell array of character vectors; "
      "an option's value must be a character vector.",
      "MyGroup");
  expectRaised<TG::ExpectedNames>("Expected an option name, 'grouping' or 'model', as a character vector.",
                                  "'grouping' or 'model'");
  expectRaised<TG::ExpectedNames>(
      "Required options are missing: expected 'htmlfile' and one of 'lhsfile' or 'rhsfile' to be set.",
      "'htmlfile' and one of 'lhsfile' or 'rhsfile' to be set.");
  expectRaised<TG::MissingOrfExt>("The file name must contain \".orf\", as in run.orf.");
  // A comparison side taken from the live store has an empty file name.
  const auto live = tgMakeError<TG::NoRawTracerDataLoaded>("");
  EXPECT_EQ(live.record().arguments.at(0), "");
  EXPECT_NE(live.messageText().find("current session"), std::string::npos);
  EXPECT_EQ(tgMakeError<TG::NoRawTracerDataLoaded>("b.orf").messageText(),
            "There is no raw tracer data in 'b.orf'.");
}

TEST(MessageIds, UnknownOrShortRecordsStillGiveText) {
  tempogauge::MessageRecord unknown{{"x", "y"}, "tempogauge:TempoGauge", "NoSuchId"};
  EXPECT_EQ(tempogauge::messageText(unknown), "Error tempogauge:TempoGauge:NoSuchId: x, y.");
  tempogauge::MessageRecord shortRecord{{}, "tempogauge:TempoGauge", "OpenFileFailed"};
  EXPECT_EQ(tempogauge::messageText(shortRecord), "Could not open the file ''.");
}
