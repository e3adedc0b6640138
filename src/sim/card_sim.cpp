#include "sim/card_sim.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "formats/text_file.h"

namespace zel::sim {

namespace fs = std::filesystem;

namespace {

struct ModelInfo {
  std::string model;
  std::string folder;  // the marker's folder
  std::string firmware;
  std::string listTag;  // the first field of an f_list.cfg entry on this model
};

ModelInfo infoFor(const std::string& model) {
  if (model == "SDS100") return {model, "BCDx36HP", "1.23.15", "F-List"};
  if (model == "SDS200") return {model, "BCDx36HP", "1.10.08", "F-List"};
  if (model == "UBCD3600XLT") return {model, "BCDx36HP", "1.06.01", "F-1ist"};
  if (model == "UBCD536-PT" || model == "UBCD436-PT")
    return {model, "UBCDx36", "1.04.02", "F-List "};
  return {"BCD536HP", "BCDx36HP", "1.05.04", "F-List"};
}

std::string crlf(std::initializer_list<std::string> lines) {
  std::string out;
  for (const auto& l : lines) out += l + "\r\n";
  return out;
}

std::string repeat(const std::string& word, int n) {
  std::string out;
  for (int i = 0; i < n; ++i) out += word + "\t";
  return out;
}

// One entry of the list of lists: tag, name, file, location control, monitor, quick key,
// number tag, ten startup keys and one hundred system quick keys, each flag followed by a
// TAB as the scanner writes them.
std::string listEntry(const std::string& tag, const std::string& name, const std::string& file,
                      const std::string& quickKey) {
  return tag + "\t" + name + "\t" + file + "\tOff\tOn\t" + quickKey + "\tOff\t" + "On\t" +
         repeat("Off", 9) + "On\tOn\t" + repeat("Off", 98);
}

const char* kHeader = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";

std::string conventionalList() {
  return std::string(kHeader) +
         crlf({"Conventional\t\t\tLake County Fire\tOff\t\tConventional\tOff\tOff\t0\tOff\tOff\t"
               "400\tAuto\t8",
               "DQKs_Status\t\t" + repeat("On", 100),
               "C-Group\tCGroupId=1\tAgencyId=2\tDispatch\tOff\t41.680000\t-81.340000\t10.0\t"
               "Circle\tOff\tGlobal",
               "C-Freq\t\t\tFire Dispatch\tOff\t154430000\tFM\tTONE=C156.7\t3\tOff\t2\t0\tOff\t"
               "Auto\tOff\tOn\tOff\tOff",
               "C-Freq\t\t\tFireground\tOff\t154280000\tFM\t\t3\tOff\t2\t0\tOff\tAuto\tOff\tOn\t"
               "Off\tOff",
               "C-Group\tCGroupId=2\tAgencyId=2\tEMS\tOff\t41.680000\t-81.340000\t10.0\tCircle\tOff"
               "\tGlobal",
               "C-Freq\t\t\tEMS Main\tOff\t155340000\tNFM\tTONE=D023\t4\tOff\t2\t0\tOff\tAuto\tOff"
               "\tOn\t1\tOff"});
}

std::string trunkedList() {
  return std::string(kHeader) +
         crlf({"Trunk\t\t\tCounty P25\tOff\t\tP25Standard\tOff\tOff\tAuto\tIgnore\tSrch\tOff\t"
               "None\t0\tOff\tOff\t\tOff\tOff\tOn",
               "DQKs_Status\t\t" + repeat("On", 100),
               "Site\tSiteId=1\tTrunkId=2\tNorth Simulcast\tOff\t41.500000\t-81.600000\t15.0\t"
               "AUTO\tStandard\tWide\tCircle\tOff\t500\tAuto\t9\tOff\t\t",
               "T-Freq\tTFreqId=0\tSiteId=1\t\tOff\t851012500\t1\tSrch\tSrch",
               "T-Freq\tTFreqId=0\tSiteId=1\t\tOff\t851512500\t2\tSrch\tSrch",
               "T-Group\tTGroupId=2\tTrunkId=2\tSheriff\tOff\t41.500000\t-81.600000\t15.0\t"
               "Circle\tOff",
               "TGID\t\t\tSheriff Dispatch\tOff\t1201\tAll\t2\t2\t0\tOff\tAuto\tOff\tOn\tOff\tOff"
               "\tSrch",
               "TGID\t\t\tSheriff Tac\tOff\t1202\tAll\t2\t2\t0\tOff\tAuto\tOff\tOn\tOff\tOff\t"
               "Srch"});
}

std::string profileCfg(const std::string& model) {
  return crlf({"TargetModel\tBCDx36HP", "FormatVersion\t1.00", "ProductName\t" + model,
               "ServiceType\t" + repeat("On", 4) + repeat("Off", 32) + "Off",
               "CustomServiceType\tOn\t" + repeat("Off", 8) + "Off",
               "QuickKeys\t" + repeat("Off", 98) + "Off", "Weather\t\t2\tOff\tOff"});
}

}  // namespace

const std::vector<std::string>& simCardModels() {
  static const std::vector<std::string> models = {"BCD536HP", "SDS100", "SDS200", "UBCD3600XLT",
                                                  "UBCD536-PT"};
  return models;
}

SimCardResult makeSimCard(const std::string& dir, const std::string& model) {
  SimCardResult result;
  const auto& models = simCardModels();
  if (std::find(models.begin(), models.end(), model) == models.end()) {
    result.message = "Unknown model " + model + ".";
    return result;
  }
  const ModelInfo info = infoFor(model);
  const fs::path root = fs::path(dir) / info.folder;
  std::error_code ec;
  if (fs::exists(root / "scanner.inf", ec)) {
    result.message = "A card already exists in " + dir + ".";
    return result;
  }
  fs::create_directories(root / "favorites_lists", ec);
  if (!ec) fs::create_directories(root / "HPDB", ec);
  if (ec) {
    result.message = "Cannot make the folder " + root.string() + ": " + ec.message() + ".";
    return result;
  }

  const std::string flist = crlf({"TargetModel\tBCDx36HP", "FormatVersion\t1.00",
                                  listEntry(info.listTag, "Lake County Fire", "f_000001.hpd", "1"),
                                  listEntry(info.listTag, "County P25", "f_000002.hpd", "Off")});
  const std::vector<std::pair<std::string, std::string>> files = {
      {"scanner.inf", crlf({"TargetModel\tBCDx36HP", "FormatVersion\t1.00",
                            "Scanner\t" + info.model + "\t" + kSimSerial + "\t" + info.firmware +
                                "\t01\t\t1.00.00\t1.00.00\t0\t1.01.10"})},
      {"profile.cfg", profileCfg(info.model)},
      {"favorites_lists/f_000001.hpd", conventionalList()},
      {"favorites_lists/f_000002.hpd", trunkedList()},
      // The list files first, the configuration that names them last.
      {"favorites_lists/f_list.cfg", flist},
      {"HPDB/hpdb.cfg",
       crlf({"TargetModel\tBCDx36HP", "FormatVersion\t1.00", "DateModified\t01/15/2024 12:00:00",
             "StateInfo\tStateId=0\tCountryId=0\t_MultipleStates\t",
             "StateInfo\tStateId=39\tCountryId=1\tOhio\tOH"})},
      {"HPDB/s_000039.hpd", conventionalList()},
  };
  for (const auto& [name, content] : files) {
    auto st = formats::writeFileAtomically((root / name).string(), content);
    if (!st.ok) {
      result.message = "Cannot write " + (root / name).string() + ": " + st.description + ".";
      return result;
    }
    result.files.push_back(info.folder + "/" + name);
  }
  result.ok = true;
  result.scannerRoot = root.string();
  return result;
}

}  // namespace zel::sim
