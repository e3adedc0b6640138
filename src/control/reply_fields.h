// Comma-field access on a scanner reply.
//
//   GLG,0154.4300,NFM,0,127.3,County,Fire,Dispatch,1,0,,,NONE<CR>
//   ^0  ^1        ^2  ^3 ^4   ^5     ^6   ^7       ^8 ...
//
// Every CR and LF is taken out first, then the text is split on commas. Element 0 is the
// command word. There is no quoting on the wire.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::control {

// Element n counted from 0; "" beyond the end.
std::string ReplyField(std::string_view reply, int n);
// Element (last index - n). The split keeps at most 51 elements, so a longer reply counts
// from element 50.
std::string ReplyFieldFromEnd(std::string_view reply, int n);
// As ReplyField, without one leading and one trailing double quote. When expectedLast is
// above 0 and the reply's last index differs from it, the result is "0".
std::string ReplyFieldUnquoted(std::string_view reply, int n, int expectedLast = 0);

// The reply without CR and LF, split on commas (no limit).
std::vector<std::string_view> replyFields(std::string_view stripped);
std::string stripLineEnds(std::string_view reply);

}  // namespace zel::control
