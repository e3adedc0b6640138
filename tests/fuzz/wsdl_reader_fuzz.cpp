// Fuzzing the service description reader and the operation lookup on what it read.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "radioref/wsdl_tables.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel::radioref;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  WsdlTables tables;
  const WsdlParseResult result = ParseWSDL(text, tables);
  if (!result.ok) {
    // No tables from a document that could not be read.
    if (result.reason.empty() || !tables.messages.empty() || !tables.portTypes.empty() ||
        !tables.bindings.empty() || !tables.services.empty() ||
        !tables.schema.complexTypes.empty()) {
      std::abort();
    }
    return 0;
  }
  for (const WsdlPortType& portType : tables.portTypes) {
    for (const WsdlPortOperation& operation : portType.operations) {
      const SelectedOperation selected = SelectOperation(tables, operation.name);
      if (selected.InputMessage != operation.inputMessage && !selected.InputMessage.empty()) {
        // The first operation of that name wins; another of the same name may differ.
        continue;
      }
      if (selected.found && selected.TypeName.empty()) std::abort();
    }
  }
  for (const WsdlMessage& message : tables.messages) {
    if (message.partCount != static_cast<int>(message.parts.size())) std::abort();
  }
  (void)SelectOperation(tables, "");
  return 0;
}
