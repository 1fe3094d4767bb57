// SPDX-License-Identifier: GPL-3.0-or-later
// The Octave function GaugeKit. Without arguments it gives the package value
// whose indexing calls the members (GaugeKit.Tracer.<method>(...)); with a
// member path and arguments it calls that member directly, which is how the
// generated class file forwards its static methods:
//   GaugeKit("Tracer.enable", "g", true)
// Its first call also makes the name GaugeKit resolve to a package-like
// function object (package_function.h), which later calls go through.
#include <octave/interpreter.h>
#include <octave/oct.h>

#include <memory>
#include <string>

#include "host/host_bridge.h"
#include "octave/member_call.h"
#include "octave/octave_bridge.h"
#include "octave/package_function.h"
#include "octave/package_ref.h"
#include "collect/module_entry.h"

namespace {

// Undoes the installation of the Octave bridge when Octave unloads this
// file, while the bridge's code is still mapped.
struct BridgeInstallation {
  BridgeInstallation() { tgSetHostBridge(std::make_shared<tg::octave_adapter::OctaveBridge>()); }
  ~BridgeInstallation() { tgSetHostBridge(nullptr); }
};

void attachOnce() {
  static bool attached = false;
  if (attached) return;
  attached = true;
  ORInitialize_tempogauge();
  static BridgeInstallation installation;
  // Keeps this file loaded: the package value's type lives here.
  octave::interpreter::the_interpreter()->mlock();
}

}  // namespace

DEFUN_DLD(GaugeKit, args, nargout,
          "-*- texinfo -*-\n"
          "@deftypefn {} {} GaugeKit.Tracer.@var{method} (@dots{})\n"
          "The tempogauge tracer: static methods of the class GaugeKit.Tracer.\n"
          "List them with @code{methods (\"GaugeKit.Tracer\")}.\n"
          "@end deftypefn") {
  attachOnce();
  // From now on the name resolves to the package-like function object; this
  // call (the first, or the first after a "clear") is answered here.
  tg::octave_adapter::PackageFunction::install();
  if (args.length() == 0) return ovl(tg::octave_adapter::PackageRef::instance());
  return tg::octave_adapter::callMemberPath(args, nargout);
}
