// SPDX-License-Identifier: BSD-3-Clause
// What a raw point's diagnostic row needs to know about the phase execution it
// belongs to. Processed points implement it (they lead the diagnostic record).
#pragma once

class TGDiagnosticInfo {
 public:
  virtual ~TGDiagnosticInfo() = default;
  virtual bool isErrorRow() const = 0;
};
