// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the Octave class file of GaugeKit.Tracer from the class registry:
// one static method per visible method info, each forwarding to the
// function GaugeKit. Octave lists the methods of the class from this file;
// the hidden method is left out, and stays callable by name through GaugeKit.
// The class's help text comes from a texinfo file; the methods' help texts
// live in the package functions +GaugeKit/+Tracer/<method>.m, and a method
// of the registry without one stops the build.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "scripting/gaugekit_package.h"

namespace {

// The lines of a text file as "## " comment lines.
bool appendAsComment(const std::filesystem::path& file, std::ostream& out) {
  std::ifstream in(file);
  if (!in) return false;
  for (std::string line; std::getline(in, line);) out << (line.empty() ? "##" : "## " + line) << "\n";
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: " << argv[0] << " OUTPUT.m CLASS_HELP.texi METHOD_HELP_DIR\n";
    return 2;
  }
  const objsys::OBSClass* cls = tgTracerClass();
  if (!cls) {
    std::cerr << "GaugeKit.Tracer is not registered\n";
    return 1;
  }
  const std::filesystem::path out(argv[1]);
  const std::filesystem::path methodHelp(argv[3]);
  bool missingHelp = false;
  for (const auto& method : cls->methods().methods()) {
    if (std::filesystem::exists(methodHelp / (method->getName() + ".m"))) continue;
    std::cerr << "no help text for GaugeKit.Tracer." << method->getName() << ": expected "
              << (methodHelp / (method->getName() + ".m")).string() << "\n";
    missingHelp = true;
  }
  if (missingHelp) return 1;
  std::ostringstream classHelp;
  if (!appendAsComment(argv[2], classHelp)) {
    std::cerr << "cannot read " << argv[2] << "\n";
    return 1;
  }
  std::filesystem::create_directories(out.parent_path());
  const std::filesystem::path temp = out.string() + ".tmp";
  {
    std::ofstream file(temp);
    file << "## SPDX-License-Identifier: GPL-3.0-or-later\n"
            "## GaugeKit.Tracer: the tempogauge tracer. Generated from the class registry;\n"
            "## every method is static and forwards to the function GaugeKit.\n"
            "classdef Tracer\n"
         << classHelp.str() << "  methods (Static)\n";
    for (const auto& method : cls->methods().methods()) {
      if (!method->isVisible()) continue;
      const std::string name = method->getName();
      const bool hasOutput = !method->getMethodSignature().outputTypes().empty();
      file << "    function " << (hasOutput ? "result = " : "") << name << " (varargin)\n"
           << "      " << (hasOutput ? "result = " : "") << "GaugeKit (\"Tracer." << name
           << "\", varargin{:});\n"
           << "    endfunction\n";
    }
    file << "  endmethods\n"
            "endclassdef\n";
    if (!file) {
      std::cerr << "cannot write " << temp << "\n";
      return 1;
    }
  }
  std::filesystem::rename(temp, out);
  return 0;
}
