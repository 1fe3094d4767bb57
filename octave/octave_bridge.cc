// SPDX-License-Identifier: GPL-3.0-or-later
// Host calls answered by the running Octave interpreter.
#include "octave/octave_bridge.h"

#include <octave/interpreter.h>
#include <octave/oct.h>
#include <octave/parse.h>

#include <string>

#include "host/standalone_bridge.h"
#include "octave/octave_values.h"

namespace tg::octave_adapter {
namespace {

std::string textInput(tgArrayView<const oxArray* const> inputs, std::size_t index) {
  return index < inputs.size() ? oxArrayToStdString(inputs[index]) : std::string();
}

// Calls an Octave function; a failure becomes a non-zero status and leaves
// the interpreter ready for the next statement.
int callOctave(const std::string& function, const octave_value_list& args, tgArrayView<oxArrayPtr> outputs) {
  octave::interpreter* interp = octave::interpreter::the_interpreter();
  if (!interp) return 1;
  try {
    const octave_value_list results = octave::feval(function, args, static_cast<int>(outputs.size()));
    if (results.length() < static_cast<octave_idx_type>(outputs.size())) return 1;
    for (std::size_t i = 0; i < outputs.size(); ++i)
      outputs[i] = toHostArray(results(static_cast<octave_idx_type>(i)));
    return 0;
  } catch (const octave::execution_exception&) {
    interp->recover_from_exception();
    return 1;
  } catch (const std::exception&) {
    return 1;
  }
}

}  // namespace

int OctaveBridge::call(std::string_view name, tgArrayView<oxArrayPtr> outputs,
                       tgArrayView<const oxArray* const> inputs) {
  const std::string first = textInput(inputs, 0);
  if (name == "orreryroot") return callOctave("OCTAVE_HOME", octave_value_list(), outputs);
  if (name == "feature" && first == "numCores") return callOctave("nproc", octave_value_list(), outputs);
  if ((name == "version" && first == "-java") || name == "system_dependent" || name == "feature") {
    StandaloneBridge fallback;
    return fallback.call(name, outputs, inputs);
  }
  if (name == "version" || name == "evalc") {
    octave_value_list args;
    for (const oxArray* input : inputs) args.append(toOctaveValue(input));
    return callOctave(std::string(name), args, outputs);
  }
  // The module's own host commands (such as "cwsvInternal") have no
  // counterpart in Octave.
  return 1;
}

void OctaveBridge::print(std::string_view text) {
  octave_stdout.write(text.data(), static_cast<std::streamsize>(text.size()));
  octave_stdout.flush();
}

}  // namespace tg::octave_adapter
