// `zel card` and `zel sim card` end to end: the real binary on simulated card trees and on
// copies of real cards, with its messages, exit codes and the files it leaves.
#include "zel_run.h"

namespace {

namespace fs = std::filesystem;
using zel::e2e::CardCommand;
using zel::e2e::slurp;
using zel::e2e::snapshot;
using zel::e2e::ZelRun;

TEST_F(CardCommand, DetectionMessagePerFamily) {
  struct Case {
    const char* model;
    const char* head;
  } cases[] = {{"BCD536HP", " BCDx36HP/3600/SDS detected at drive "},
               {"SDS200", "SDSx00 series detected at drive "},
               {"UBCD536-PT", "UBCDx36HP detected at drive "}};
  for (const auto& c : cases) {
    const std::string path = card(c.model, c.model);
    ZelRun r = zel("card detect" + root(path));
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out.rfind(std::string(c.head) + path + " DBase=01/15/2024 12:00:00 Firmware=", 0),
              0u)
        << r.out;
    EXPECT_NE(r.out.find("Serial=00000-123456789-000 FileFormat:0"), std::string::npos);
  }
  ZelRun none = zel("card detect --root '" + path("empty") + "'");
  EXPECT_EQ(none.exitCode, 1);
  EXPECT_EQ(none.out.rfind("(u)BCDx36HP/sds not found", 0), 0u);
  ZelRun gated = zel("card list --root '" + path("empty") + "'");
  EXPECT_EQ(gated.exitCode, 1);
  EXPECT_EQ(gated.err, "Error: Scanner not detected.\n");
  EXPECT_NE(slurp(path("data/drivetest.txt")).find("ZEL536- "), std::string::npos);
}

// Which number a new list takes is the library's (favorites card tests).
TEST_F(CardCommand, ReadWriteAndDeleteNameTheFiles) {
  const std::string c = card("c", "BCD536HP");
  ZelRun read = zel("card read 1 2 --out '" + path("both.hpd") + "'" + root(c));
  ASSERT_EQ(read.exitCode, 0) << read.err;
  EXPECT_NE(read.out.find("2 systems"), std::string::npos);
  const std::string cfg = slurp(fav(c) / "f_list.cfg");
  ZelRun w = zel("card write '" + path("both.hpd") + "' --name Both" + root(c));
  ASSERT_EQ(w.exitCode, 0) << w.err;
  EXPECT_NE(w.out.find("f_000003.hpd"), std::string::npos);
  EXPECT_EQ(slurp(fav(c) / "f_list.bac"), cfg);  // backup refreshed before the rewrite
  ASSERT_EQ(zel("card delete 1 --yes" + root(c)).exitCode, 0);
  EXPECT_FALSE(fs::exists(fav(c) / "f_000001.hpd"));
  ZelRun list = zel("card list" + root(c));
  EXPECT_EQ(list.out.rfind("2\tf_000002.hpd\t", 0), 0u) << list.out;
  // The list written to the card reads back with both systems.
  ZelRun back = zel("card read 3 --out '" + path("back.hpd") + "'" + root(c));
  EXPECT_NE(back.out.find("2 systems"), std::string::npos) << back.err;
}

TEST_F(CardCommand, DeleteNeedsYesAndOrderRewritesWithBackup) {
  const std::string c = card("c", "SDS200");
  ZelRun refused = zel("card delete 1" + root(c));
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_TRUE(fs::exists(fav(c) / "f_000001.hpd"));
  const std::string cfg = slurp(fav(c) / "f_list.cfg");
  ZelRun order = zel("card order 2 1" + root(c));
  ASSERT_EQ(order.exitCode, 0) << order.err;
  EXPECT_EQ(order.out.rfind("2\tf_000002.hpd", 0), 0u) << order.out;
  EXPECT_EQ(slurp(fav(c) / "f_list.bac"), cfg);
  EXPECT_EQ(zel("card qkeys sideways" + root(c)).exitCode, 2);
}

TEST_F(CardCommand, OrphansFoundAndRecovered) {
  const std::string c = card("c", "BCD536HP");
  fs::copy_file(fav(c) / "f_000002.hpd", fav(c) / "f_000005.hpd");
  ZelRun o = zel("card orphans" + root(c));
  EXPECT_EQ(o.out, "Orphan f_000005.hpd\n");
  ZelRun rec = zel("card orphans --recover f_000005.hpd" + root(c));
  ASSERT_EQ(rec.exitCode, 0) << rec.err;
  EXPECT_NE(rec.out.find("recovered as f_000003.hpd"), std::string::npos);
  EXPECT_EQ(slurp(fav(c) / "f_000003.hpd"), slurp(fav(c) / "f_000005.hpd"));
  EXPECT_EQ(zel("card orphans --delete f_000005.hpd" + root(c)).exitCode, 1);
  ASSERT_EQ(zel("card orphans --delete f_000005.hpd --yes" + root(c)).exitCode, 0);
  EXPECT_EQ(zel("card orphans" + root(c)).out, "No orphan files.\n");
}

// A list bigger than the file size limit of the process: the write is cut off halfway, and
// the card is left byte for byte as it was.
TEST_F(CardCommand, WriteCutOffHalfwayLeavesTheCardAsItWas) {
  const std::string c = card("c", "BCD536HP");
  std::string big = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
  big += "Conventional\t\t\tBig\tOff\t\tConventional\tOff\tOff\t0\tOff\tOff\t400\tAuto\t8\r\n";
  for (int g = 0; g < 150; ++g) {
    big += "C-Group\t\t\tGroup " + std::to_string(g) +
           "\tOff\t41.000000\t-81.000000\t10.0\tCircle\tOff\tGlobal\r\n";
    for (int f = 0; f < 8; ++f) {
      big += "C-Freq\t\t\tChannel " + std::to_string(f) + "\tOff\t1540" + std::to_string(10 + f) +
             "000\tFM\t\t3\tOff\t2\t0\tOff\tAuto\tOff\tOn\tOff\tOff\r\n";
    }
  }
  const std::string file = path("big.hpd");
  std::ofstream(file, std::ios::binary) << big;
  const auto before = snapshot(c);
  ZelRun r = zel("card write '" + file + "' --name Big" + root(c), "ulimit -f 40; ");
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.err.find("the card was left as it was."), std::string::npos) << r.err;
  EXPECT_EQ(snapshot(c), before);
  // Without the limit the same write goes through.
  ZelRun ok = zel("card write '" + file + "' --name Big" + root(c));
  EXPECT_EQ(ok.exitCode, 0) << ok.err;
}

TEST_F(CardCommand, EnableAllTurnsListKeysAndTheProfileOn) {
  const std::string c = card("c", "BCD536HP");
  ASSERT_EQ(zel("card qkeys clear" + root(c)).exitCode, 0);
  const std::string before = slurp(fav(c) / "f_list.cfg");
  ZelRun r = zel("card enable-all 2" + root(c));
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("profile.cfg: every flag on"), std::string::npos) << r.out;
  EXPECT_EQ(slurp(fav(c) / "f_list.bac"), before);
  // Which flags turn on is the library's (favorites configuration and profile tests).
  EXPECT_NE(zel("card list --json" + root(c)).out.find("\"startupKeys\":\"1111111111\""),
            std::string::npos);
  EXPECT_EQ(zel("card enable-all 9" + root(c)).exitCode, 1);
}

// Overwriting a list asks first, as delete does; without --yes nothing changes.
TEST_F(CardCommand, OverwriteNeedsYes) {
  const std::string c = card("c", "BCD536HP");
  ASSERT_EQ(zel("card read 1 --out '" + path("one.hpd") + "'" + root(c)).exitCode, 0);
  const auto before = snapshot(c);
  ZelRun refused = zel("card write '" + path("one.hpd") + "' --overwrite 2" + root(c));
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_NE(refused.err.find("Add --yes to confirm."), std::string::npos) << refused.err;
  EXPECT_EQ(snapshot(c), before);
  ZelRun done = zel("card write '" + path("one.hpd") + "' --overwrite 2 --yes" + root(c));
  EXPECT_EQ(done.exitCode, 0) << done.err;
}

// profile.cfg is on the card but cannot be replaced (the file size limit cuts the rewrite):
// the command says so and fails instead of calling the file missing.
TEST_F(CardCommand, EnableAllFailsWhenTheProfileCannotBeWritten) {
  const std::string c = card("c", "BCD536HP");
  const fs::path profile = fs::path(c) / "BCDx36HP" / "profile.cfg";
  std::string big = slurp(profile);
  for (int i = 0; i < 2000; ++i) big += "Filler\tline kept as the scanner wrote it\r\n";
  std::ofstream(profile, std::ios::binary) << big;
  ZelRun r = zel("card enable-all" + root(c), "ulimit -f 40; ");
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.err.find("profile.cfg could not be rewritten"), std::string::npos) << r.err;
  EXPECT_EQ(r.out.find("not found"), std::string::npos) << r.out;
  EXPECT_EQ(slurp(profile), big);
}

}  // namespace
