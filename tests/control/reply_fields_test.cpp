#include "control/reply_fields.h"

#include <gtest/gtest.h>

namespace zel::control {
namespace {

struct FieldCase {
  const char* reply;
  int n;
  const char* field;
  const char* fromEnd;
};

TEST(ReplyFields, FieldsCountFromTheCommandWordWithLineEndsRemoved) {
  const FieldCase cases[] = {
      {"GLG,0154.4300,NFM\r", 0, "GLG", "NFM"},
      {"GLG,0154.4300,NFM\r", 2, "NFM", "GLG"},
      {"GLG,0154.4300,NFM\r", 3, "", ""},
      {"VOL,4\r\n", 1, "4", "VOL"},
      {"A,\rB,C", 1, "B", "B"},  // a CR inside the reply goes too
      {"GLG,,,,,,,,,,,,\r", 12, "", "GLG"},
      {"", 0, "", ""},
      {"X,Y", -1, "", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ReplyField(c.reply, c.n), c.field) << c.reply << " #" << c.n;
    EXPECT_EQ(ReplyFieldFromEnd(c.reply, c.n), c.fromEnd) << c.reply << " #" << c.n;
  }
}

TEST(ReplyFields, FromEndCountsFromElementFiftyOfALongReply) {
  std::string reply = "STS";
  for (int i = 1; i <= 60; ++i) reply += "," + std::to_string(i);
  EXPECT_EQ(ReplyFieldFromEnd(reply, 0), "50");
  EXPECT_EQ(ReplyFieldFromEnd(reply, 3), "47");
  EXPECT_EQ(ReplyField(reply, 60), "60");  // the plain access has no such limit
}

TEST(ReplyFields, UnquotedStripsOneQuoteEachSideAndChecksTheLastIndex) {
  EXPECT_EQ(ReplyFieldUnquoted("GWF,\"12\",\"\"7\"\"\r", 1), "12");
  EXPECT_EQ(ReplyFieldUnquoted("GWF,\"12\",\"\"7\"\"\r", 2), "\"7\"");
  EXPECT_EQ(ReplyFieldUnquoted("CSC,12,01544300,1", 2, 3), "01544300");
  EXPECT_EQ(ReplyFieldUnquoted("CSC,12,01544300", 2, 3), "0");
  EXPECT_EQ(ReplyFieldUnquoted("CSC,12,01544300,1,9", 1, 3), "0");
}

}  // namespace
}  // namespace zel::control
