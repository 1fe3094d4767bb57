// SPDX-License-Identifier: GPL-3.0-or-later
// The function object that the name GaugeKit resolves to once the adapter is
// loaded. It acts as a package: a '.' chain written after the name indexes
// the package value that it gives when called without input, and function
// handles such as @GaugeKit.Tracer.enable or
// @GaugeKit.cwsvStringTableDoGarbageCollection find their member through it.
#pragma once

#include <octave/oct.h>
#include <octave/ov-fcn.h>

#include <string>

namespace tg::octave_adapter {

class PackageFunction : public octave_function {
 public:
  PackageFunction();

  octave_function* function_value(bool = false) override { return this; }
  bool is_package() const override { return true; }
  // A '.' index is not taken here: Octave then calls GaugeKit with no input,
  // which gives the package value, and indexes that with the whole chain.
  // So GaugeKit.Tracer and a package function named without parentheses
  // work as GaugeKit.Tracer.enable(...) does.
  bool accepts_postfix_index(char type) const override { return type == '('; }

  // GaugeKit alone gives the package value; GaugeKit(path, args...) calls a member.
  octave_value_list call(octave::tree_evaluator& tw, int nargout, const octave_value_list& args) override;
  octave_value_list execute(octave::tree_evaluator& tw, int nargout, const octave_value_list& args) override;

  octave_value subsref(const std::string& type, const std::list<octave_value_list>& idx) override;
  octave_value subsref(const std::string& type, const std::list<octave_value_list>& idx, bool auto_add) override;
  octave_value_list subsref(const std::string& type, const std::list<octave_value_list>& idx,
                            int nargout) override;

  // Makes the name GaugeKit resolve to this function object (again, after
  // a "clear" has removed it).
  static void install();
};

// A package-level function of GaugeKit, as a callable Octave function.
class PackageMemberFunction : public octave_function {
 public:
  explicit PackageMemberFunction(std::string member);
  octave_function* function_value(bool = false) override { return this; }
  octave_value_list call(octave::tree_evaluator& tw, int nargout, const octave_value_list& args) override;
  octave_value_list execute(octave::tree_evaluator& tw, int nargout, const octave_value_list& args) override;

 private:
  std::string member_;
};

}  // namespace tg::octave_adapter
