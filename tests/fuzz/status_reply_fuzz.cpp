// The serial replies: every parser of the status decoder on the same bytes (STS screens,
// GLG records, the GSI document, the short replies), and the reply field and XML attribute
// readers under them.
#include <cstdlib>
#include <memory>

#include "control/reply_fields.h"
#include "control/scripted_serial_port.h"
#include "control/virtual_control.h"
#include "control/xml_attribute.h"
#include "core/memory_ports.h"
#include "fuzz_support.h"

namespace {

class NoPump : public zel::control::EventPump {
 public:
  void runFor(int) override {}
  void runPending() override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel;
  using namespace zel::control;
  const std::string reply(fuzz::textOf(data, size));
  for (Family family : {Family::Bcd, Family::Sds}) {
    ManualClock clock;
    NoPump pump;
    ScriptedSerialPort port;
    RecordingFeedback feedback;
    MemorySettingsStore settings;
    VirtualControl vc(family, VcPorts{port, clock, pump, feedback, settings}, "");
    StatusDecoder& d = vc.decoder;
    d.parseSts(reply);
    d.parseGlg(reply);
    d.parseGsi(reply);
    d.parseGid(reply);
    d.parseVolume(reply);
    d.parseSquelch(reply);
    d.parseModel(reply);
    d.parsePower(reply);
    d.parseServices(reply);
    d.parseWindow(reply);
    d.parseWaterfall(reply);
  }
  (void)XmlAttribute(reply, "ScannerInfo", "Mode");
  (void)reshapeGsi(reply);
  (void)ReplyFieldUnquoted(reply, 3, 5);
  (void)ReplyFieldFromEnd(reply, 2);
  return 0;
}
