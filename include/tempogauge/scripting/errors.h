// SPDX-License-Identifier: BSD-3-Clause
// The exceptions of the scripting interface. Each message ID has its own
// exception class, hfnd::except::Exception<ID>, which carries the message
// record and the full error ID "tempogauge:TempoGauge:<name>". Hosts catch
// hfnd::except::IMsgIDException and report get_error_id() with the catalogue
// text (what(), or messageText()).
//
//   throw tgMakeError<tempogauge::TempoGauge::OpenFileFailed>(fileName);
//   tgRaise<tempogauge::TempoGauge::MaxParamsExceeded>("8");
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "tempogauge/scripting/message_ids.h"
#include "tempogauge/scripting/message_record.h"
#include "tempogauge/scripting/messages.h"

namespace hfnd::except {

// Root of the module's exceptions.
class IException {
 public:
  virtual ~IException() = default;
  virtual std::unique_ptr<IException> clone() const = 0;
  [[noreturn]] virtual void rethrow() const = 0;
  virtual const char* what() const noexcept = 0;
};

// An exception meant for the user of the host.
class IUserException : public IException {};

// A user exception identified by a message ID with text arguments.
class IMsgIDException : public IUserException {
 public:
  explicit IMsgIDException(tempogauge::MessageRecord record)
      : record_(std::move(record)),
        errorId_(makeErrorId(record_)),
        text_(tempogauge::messageText(record_)) {}

  // "tempogauge:TempoGauge:<name>" of a record.
  static std::string makeErrorId(const tempogauge::MessageRecord& record) { return record.fullId(); }

  // The full error ID of this exception, e.g. "tempogauge:TempoGauge:OpenFileFailed".
  std::string get_error_id() const { return errorId_; }
  const tempogauge::MessageRecord& record() const { return record_; }
  // The catalogue's text with the arguments filled in.
  const std::string& messageText() const { return text_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  tempogauge::MessageRecord record_;
  std::string errorId_;
  std::string text_;
};

// The exception class of one message ID.
template <class Tag, class StdBase = std::exception>
class Exception final : public IMsgIDException, public StdBase {
 public:
  using tag_type = Tag;
  explicit Exception(tempogauge::MessageRecord record) : IMsgIDException(std::move(record)) {}

  std::unique_ptr<IException> clone() const override { return std::make_unique<Exception>(*this); }
  [[noreturn]] void rethrow() const override { throw *this; }
  const char* what() const noexcept override { return IMsgIDException::what(); }
};

}  // namespace hfnd::except

// Builds the exception of ID `Tag` from its text arguments (count checked at
// compile time).
template <class Tag, class... Args>
hfnd::except::Exception<Tag> tgMakeError(Args&&... args) {
  return hfnd::except::Exception<Tag>(
      tempogauge::TempoGauge::makeMessageRecord<Tag>(std::forward<Args>(args)...));
}

// Builds and throws the exception of ID `Tag`.
template <class Tag, class... Args>
[[noreturn]] void tgRaise(Args&&... args) {
  throw tgMakeError<Tag>(std::forward<Args>(args)...);
}
