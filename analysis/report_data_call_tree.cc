// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/report_data.h"
#include "analysis/report_data_text.h"

namespace {

using namespace tg::report_data;

constexpr std::string_view kCallTreeScript =
    "        var isIE = (navigator.appName.indexOf('Microsoft') > -1);\n"
    "        var CTDataView = new Array();\n"
    "        CTDataView['Index'] = new Array();\n"
    "        CTDataView['Checked'] = new Array();\n"
    "        var nodeArray = new Array();\n"
    "        function createNode(idx, parentIdx, ids, children) {\n"
    "            var node = new Object();\n"
    "            node.index = idx;\n"
    "            node.IDs = ids;\n"
    "            node.Parent = parentIdx;\n"
    "            node.children = children;\n"
    "            node.show = (idx > 0) ? false : true;\n"
    "            nodeArray[idx] = node;\n"
    "            return node;\n"
    "        }\n"
    "        var callTreeArray = new Array();\n";

// Numbers the nodes in the order their text is written; a root is its own
// parent, a child's parent is the node whose children list holds it.
class NodeWriter {
 public:
  explicit NodeWriter(std::string& out) : out_(out) {}

  void writeRoot(const callTreeNode& node) { write(node, true); }

 private:
  void write(const callTreeNode& node, bool isRoot) {
    const std::int64_t idx = next_++;
    if (isRoot) parent_ = idx;
    out_ += "createNode(";
    appendInt(out_, idx);
    out_ += ',';
    appendInt(out_, parent_);
    out_ += ", [";
    for (std::size_t k = 0; k < node.ids.size(); ++k) {
      if (k > 0) out_ += ", ";
      appendInt(out_, node.ids[k]);
    }
    out_ += "], \n[";
    if (!node.children.empty()) {
      const std::int64_t saved = parent_;
      parent_ = idx;
      bool first = true;
      for (const auto& child : node.children) {
        if (!child) continue;
        if (!first) out_ += ',';
        first = false;
        write(*child, false);
      }
      parent_ = saved;
    }
    out_ += "])";
  }

  std::string& out_;
  std::int64_t next_ = 0;
  std::int64_t parent_ = 0;
};

}  // namespace

std::string writeCallTree(const CallTree& roots) {
  std::string out(kCallTreeScript);
  NodeWriter writer(out);
  std::int64_t k = 0;
  for (const auto& root : roots) {
    if (!root) continue;
    out += "        callTreeArray[";
    appendInt(out, k++);
    out += "] = ";
    writer.writeRoot(*root);
    out += ";\n";
  }
  out += "        CTDataView.AllCTChecked = false;\n";
  return out;
}
