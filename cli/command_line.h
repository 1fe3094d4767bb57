// The command line of the tempogauge command: a subcommand, its positional
// arguments and its --options.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tg::cli {

// A command line the command cannot take; the text says what is wrong.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct CommandLine {
  std::string command;
  std::vector<std::string> positional;
  std::map<std::string, std::string> values;  // --name VALUE (and -o VALUE as "--out-file")
  std::set<std::string> switches;             // --name without a value

  std::optional<std::string> value(const std::string& name) const;
  bool has(const std::string& name) const { return switches.count(name) > 0; }
};

// What a subcommand accepts: options that take a value, switches, and the
// number of positional arguments.
struct CommandRules {
  std::set<std::string> valueOptions;
  std::set<std::string> switchOptions;
  std::size_t positionalCount = 0;
};

// Splits argv after the subcommand by `rules`; raises UsageError for an
// unknown option, a missing value or a wrong number of positional arguments.
CommandLine parseCommandLine(const std::string& command, const std::vector<std::string>& args,
                             const CommandRules& rules);

}  // namespace tg::cli
