#include "control/xml_attribute.h"

#include <gtest/gtest.h>

namespace zel::control {
namespace {

const char* kGsi =
    "GSI,<XML>,\r<?xml version=\"1.0\" encoding=\"utf-8\"?>\r"
    "<ScannerInfo Mode=\"Scan Mode\" V_Screen=\"trunk_scan\">\r"
    "  <System Name=\"Fire &amp; Rescue, North\" SystemType=\"P25 Standard\" Q_Key=\"3\" />\r"
    "  <Site Name=\"Simulcast\" Index=\"12\" />\r"
    "  <SiteFrequency Freq=\" 851.012500MHz\" SAD=\"293\" />\r"
    "  <Property VOL=\"4\" SQL=\"0\" Mute=\"Unmute\" />\r"
    "</ScannerInfo>\r";

// &amp; is decoded and the comma made safe; the blank after Site keeps SiteFrequency out; a
// missing RSSI reads as -110.
TEST(XmlAttribute, ReadsTheQuotedValueInsideTheFirstElementOfTheTag) {
  struct Case {
    const char* tag;
    const char* attribute;
    const char* value;
  } cases[] = {{"ScannerInfo", "Mode=", "Scan Mode"},
               {"ScannerInfo", "V_Screen=", "trunk_scan"},
               {"System", "Name=", "Fire & Rescue; North"},
               {"System", "Q_Key=", "3"},
               {"Site ", "Index=", "12"},
               {"SiteFrequency", "Freq=", " 851.012500MHz"},
               {"Property", "SQL=", "0"},
               {"Property", "Rssi=", "-110"},
               {"Property", "Backlight=", ""},
               {"Department", "Name=", ""},
               {"Property", "", ""}};
  for (const auto& c : cases)
    EXPECT_EQ(XmlAttribute(kGsi, c.tag, c.attribute), c.value) << c.tag << " " << c.attribute;
}

TEST(XmlAttribute, ReshapingMarksElementLinesWithDoubleAngles) {
  std::string x = reshapeGsi(kGsi);  // each " />" ends its line; commas became ";"
  for (const char* part : {"<<SiteFrequency ", "<<System Name", "GSI;<XML>;", " />\r\r<<Site"})
    EXPECT_NE(x.find(part), std::string::npos) << part;
  EXPECT_EQ(x.find_first_of("\n,"), std::string::npos);
  // The reshaped text reads the same.
  EXPECT_EQ(XmlAttribute(x, "ScannerInfo", "Mode=") + "|" + XmlAttribute(x, "System", "Name="),
            "Scan Mode|Fire & Rescue; North");
}

}  // namespace
}  // namespace zel::control
