// SPDX-License-Identifier: BSD-3-Clause
// The method infos of GaugeKit.Tracer: one class per method, all static, each
// with its declared signature. What each invoke does lives in the handler
// files (log_handlers.cc, switch_handlers.cc, ...).
#pragma once

#include <string>

#include "scripting/objsys.h"

class TempoGaugeOBSClassInfo;

class TempoGaugeBaseMI : public objsys::OBSMethodInfo {
 public:
  // Declares `inputs` inputs and `outputs` outputs, all of type "any"; an
  // open-ended method also accepts inputs beyond the declared ones.
  TempoGaugeBaseMI(const TempoGaugeOBSClassInfo* owner, const char* scriptName, int inputs, bool openEnded,
                   int outputs);

  std::string getName() const override { return name_; }
  const objsys::OBSMethodSignature& getMethodSignature() const override { return *signature_; }
  bool isFirstArgDispatch() const override { return false; }
  const TempoGaugeOBSClassInfo* owner() const { return owner_; }

 private:
  const TempoGaugeOBSClassInfo* owner_;  // not owned
  std::string name_;
  objsys::OBSMethodSignaturePtr signature_;
};

#define TG_TRACER_METHOD(Class)                                                                     \
  class Class : public TempoGaugeBaseMI {                                                           \
   public:                                                                                          \
    using TempoGaugeBaseMI::TempoGaugeBaseMI;                                                       \
    void invoke(objsys::OBSClient* client, int& nout, objsys::OBSValue* out, int nin,               \
                objsys::OBSValue* in) override;                                                     \
    bool isStatic() const override { return true; }                                                 \
  };

TG_TRACER_METHOD(TempoGauge_clearRawData)
TG_TRACER_METHOD(TempoGauge_diagnosticReport)
TG_TRACER_METHOD(TempoGauge_enable)
TG_TRACER_METHOD(TempoGauge_enableGlobalLogging)
TG_TRACER_METHOD(TempoGauge_enableCWStartupLogging)
TG_TRACER_METHOD(TempoGauge_enableDetailedMemStats)
TG_TRACER_METHOD(TempoGauge_generateAggregateDifferenceReport)
TG_TRACER_METHOD(TempoGauge_generateDifferenceReport)
TG_TRACER_METHOD(TempoGauge_generateAggregateReport)
TG_TRACER_METHOD(TempoGauge_generateHTMLReport)
TG_TRACER_METHOD(TempoGauge_generateCWStartupDifferenceReport)
TG_TRACER_METHOD(TempoGauge_generateCWStartupReport)
TG_TRACER_METHOD(TempoGauge_getProcessedData)
TG_TRACER_METHOD(TempoGauge_getRawData)
TG_TRACER_METHOD(TempoGauge_loadTracerData)
TG_TRACER_METHOD(TempoGauge_logORRERYData)
TG_TRACER_METHOD(TempoGauge_logCogwheelData)
TG_TRACER_METHOD(TempoGauge_logCWStartupData)
TG_TRACER_METHOD(TempoGauge_logLoomchartData)
TG_TRACER_METHOD(TempoGauge_addGrouping)
TG_TRACER_METHOD(TempoGauge_removeGrouping)
TG_TRACER_METHOD(TempoGauge_saveCWStartupData)
TG_TRACER_METHOD(TempoGauge_saveToFile)
TG_TRACER_METHOD(TempoGauge_setStatisticsTypeForModel)

#undef TG_TRACER_METHOD

// The one hidden method: its script name is "setUseDetailedExceptionDiagnostics".
class TempoGauge_debugEnableDiagnosticDetails : public TempoGaugeBaseMI {
 public:
  using TempoGaugeBaseMI::TempoGaugeBaseMI;
  void invoke(objsys::OBSClient* client, int& nout, objsys::OBSValue* out, int nin,
              objsys::OBSValue* in) override;
  bool isStatic() const override { return true; }
  bool isVisible() const override { return false; }
};
