// The suite's own messages speak of its windows ("Please select a favorite file.", "pressing
// yellow 'Detect' button"). They stay as they are; on the command line a second line says
// which option does what the window's control does.
#pragma once

#include <string>
#include <string_view>

namespace zel::cli {

// The option to use for a message that speaks of a window; empty for any other message.
std::string windowHint(std::string_view message);

}  // namespace zel::cli
