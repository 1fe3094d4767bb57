// SPDX-License-Identifier: BSD-3-Clause
// What an action raised, as "<name>(arg,arg)" of its message record, or
// "none" when it raised nothing.
#pragma once

#include <functional>
#include <string>

#include "scripting/errors.h"

namespace tgtest {

inline std::string raisedText(const std::function<void()>& action) {
  try {
    action();
  } catch (const hfnd::except::IMsgIDException& e) {
    std::string text = e.record().name + "(";
    for (std::size_t i = 0; i < e.record().arguments.size(); ++i) text += (i ? "," : "") + e.record().arguments[i];
    return text + ")";
  }
  return "none";
}

}  // namespace tgtest
