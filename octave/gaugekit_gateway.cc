// The Octave function GaugeKit. Without arguments it gives the package value
// whose indexing calls the members (GaugeKit.Tracer.<method>(...)); with a
// member path and arguments it calls that member directly, which is how the
// generated class file forwards its static methods:
//   GaugeKit("Tracer.enable", "g", true)
#include <octave/interpreter.h>
#include <octave/oct.h>

#include <memory>
#include <string>

#include "host/host_bridge.h"
#include "octave/member_call.h"
#include "octave/octave_bridge.h"
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
  if (args.length() == 0) return ovl(tg::octave_adapter::PackageRef::instance());
  if (!args(0).is_string()) error("GaugeKit: the first argument names a member, such as \"Tracer.enable\"");
  const std::string path = args(0).string_value();
  const std::size_t dot = path.find('.');
  const std::string className = dot == std::string::npos ? std::string() : path.substr(0, dot);
  const std::string member = dot == std::string::npos ? path : path.substr(dot + 1);
  return tg::octave_adapter::callPackageMember(className, member, args.slice(1, args.length() - 1), nargout);
}
