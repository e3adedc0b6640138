// `zel card` on copies of real scanner cards: the shared corpus is copied into a temp folder
// first, so nothing is ever written where the corpus lives.
#include "zel_run.h"

namespace {

namespace fs = std::filesystem;
using zel::e2e::CardCommand;
using zel::e2e::slurp;
using zel::e2e::ZelRun;

TEST_F(CardCommand, RealCardsReadAndWriteOnCopies) {
  const fs::path real = ZEL_REALDATA_DIR;
  for (const char* name : {"card_sds200", "card_bcd536hp"}) {
    const fs::path src = real / name / "BCDx36HP";
    if (!fs::exists(src / "favorites_lists")) GTEST_SKIP() << "no shared real cards";
    const fs::path copy = dir_ / name;
    fs::create_directories(copy / "BCDx36HP" / "favorites_lists");
    fs::copy(src / "favorites_lists", copy / "BCDx36HP" / "favorites_lists",
             fs::copy_options::recursive);
    // The corpus is read-only and a copy keeps that; a card's files are writable.
    for (const auto& e : fs::recursive_directory_iterator(copy)) {
      fs::permissions(e.path(), fs::perms::owner_write, fs::perm_options::add);
    }
    // The bcd536hp corpus has no marker: give the copy one of its model.
    std::ofstream(copy / "BCDx36HP" / "scanner.inf", std::ios::binary)
        << (fs::exists(src / "scanner.inf")
                ? slurp(src / "scanner.inf")
                : std::string("TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
                              "Scanner\tBCD536HP\t0\t1.05.04\r\n"));
    const std::string cfg = slurp(copy / "BCDx36HP" / "favorites_lists" / "f_list.cfg");
    ZelRun list = zel("card list" + root(copy.string()));
    ASSERT_EQ(list.exitCode, 0) << list.err;
    EXPECT_EQ(list.out.rfind("1\tf_000001.hpd\t", 0), 0u) << list.out;
    // Rewriting the configuration keeps every field of every entry, and the scanner's
    // previous file is the backup.
    const std::string before = zel("card list --json" + root(copy.string())).out;
    ASSERT_EQ(zel("card order 1" + root(copy.string())).exitCode, 0);
    EXPECT_EQ(zel("card list --json" + root(copy.string())).out, before);
    EXPECT_EQ(slurp(copy / "BCDx36HP" / "favorites_lists" / "f_list.bac"), cfg);
    const std::string out = (dir_ / (std::string(name) + ".hpd")).string();
    ZelRun read = zel("card read 1 --out '" + out + "'" + root(copy.string()));
    ASSERT_EQ(read.exitCode, 0) << read.err;
    ZelRun w = zel("card write '" + out + "' --name Copy" + root(copy.string()));
    ASSERT_EQ(w.exitCode, 0) << w.err;
    EXPECT_NE(w.out.find("f_000002.hpd"), std::string::npos);
  }
}

}  // namespace
