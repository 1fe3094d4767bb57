// Writes the Octave class file of GaugeKit.Tracer from the class registry:
// one static method per visible method info, each forwarding to the
// function GaugeKit. Octave lists the methods of the class from this file;
// the hidden method is left out, and stays callable by name through GaugeKit.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "scripting/gaugekit_package.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: " << argv[0] << " OUTPUT.m\n";
    return 2;
  }
  const objsys::OBSClass* cls = tgTracerClass();
  if (!cls) {
    std::cerr << "GaugeKit.Tracer is not registered\n";
    return 1;
  }
  const std::filesystem::path out(argv[1]);
  std::filesystem::create_directories(out.parent_path());
  const std::filesystem::path temp = out.string() + ".tmp";
  {
    std::ofstream file(temp);
    file << "## GaugeKit.Tracer: the tempogauge tracer. Generated from the class registry;\n"
            "## every method is static and forwards to the function GaugeKit.\n"
            "classdef Tracer\n"
            "  methods (Static)\n";
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
