// Parsing of the command's options.
#include "cli/command_line.h"

namespace tg::cli {

std::optional<std::string> CommandLine::value(const std::string& name) const {
  const auto it = values.find(name);
  if (it == values.end()) return std::nullopt;
  return it->second;
}

CommandLine parseCommandLine(const std::string& command, const std::vector<std::string>& args,
                             const CommandRules& rules) {
  CommandLine line;
  line.command = command;
  for (std::size_t i = 0; i < args.size(); ++i) {
    std::string arg = args[i];
    if (arg == "-o") arg = "--out-file";
    if (arg.size() > 2 && arg.compare(0, 2, "--") == 0) {
      std::string name = arg.substr(2);
      std::optional<std::string> inlineValue;
      if (const auto eq = name.find('='); eq != std::string::npos) {
        inlineValue = name.substr(eq + 1);
        name.resize(eq);
      }
      if (rules.valueOptions.count(name)) {
        if (inlineValue) {
          line.values[name] = *inlineValue;
        } else {
          if (i + 1 >= args.size()) throw UsageError(command + ": option " + arg + " needs a value");
          line.values[name] = args[++i];
        }
      } else if (rules.switchOptions.count(name) && !inlineValue) {
        line.switches.insert(name);
      } else {
        throw UsageError(command + ": unknown option " + args[i]);
      }
    } else {
      line.positional.push_back(arg);
    }
  }
  if (line.positional.size() != rules.positionalCount)
    throw UsageError(command + ": expected " + std::to_string(rules.positionalCount) + " file argument" +
                     (rules.positionalCount == 1 ? "" : "s") + ", got " + std::to_string(line.positional.size()));
  return line;
}

}  // namespace tg::cli
