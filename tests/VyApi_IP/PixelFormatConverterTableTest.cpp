// The converter's dispatch table: keys, functions, the first-row-wins result,
// its gaps, and where every key's routes end.
#include "TestSupport.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>

#include "VyApi_IP/VyPixelFormatConverter.h"

using namespace VyApi;
using namespace VyApiTest;

namespace {

using C = CVyPixelFormatConverter;
using Fmt = EVyPixelFormatNamingConvention_t;

std::vector<Fmt> AllFormats() {
  std::vector<Fmt> v;
  for (uint32_t code : {0x01010037u, 0x01020038u, 0x01040039u, 0x01080001u, 0x01100003u, 0x010A0046u, 0x010C0004u,
                        0x01100005u, 0x010C0047u, 0x010C0006u, 0x01100025u, 0x010E0104u, 0x01100007u, 0x0104010Du,
                        0x0104010Eu, 0x0104010Fu, 0x01040110u, 0x01080008u, 0x01080009u, 0x0108000Au, 0x0108000Bu,
                        0x0110000Cu, 0x0110000Du, 0x0110000Eu, 0x0110000Fu, 0x010A0056u, 0x010A0058u, 0x010A0054u,
                        0x010A0052u, 0x010C0026u, 0x010C0027u, 0x010C0028u, 0x010C0029u, 0x01100010u, 0x01100011u,
                        0x01100012u, 0x01100013u, 0x010C0057u, 0x010C0059u, 0x010C0055u, 0x010C0053u, 0x010C002Au,
                        0x010C002Bu, 0x010C002Cu, 0x010C002Du, 0x01100109u, 0x0110010Au, 0x0110010Bu, 0x0110010Cu,
                        0x010E0105u, 0x010E0106u, 0x010E0107u, 0x010E0108u, 0x0110002Eu, 0x0110002Fu, 0x01100030u,
                        0x01100031u, 0x02180015u, 0x02180014u, 0x02200017u, 0x02200016u, 0x02180021u, 0x02300019u,
                        0x0240004Cu, 0x02300022u, 0x82200001u, 0x0220001Du, 0x021E0048u, 0x021E005Cu, 0x0230001Bu,
                        0x0240004Eu, 0x02300023u, 0x02240049u, 0x0224005Du, 0x0230004Au, 0x02400050u, 0x0230004Bu,
                        0x02300033u, 0x02400051u, 0x02300024u, 0x020C005Au, 0x020C003Cu, 0x0210003Bu, 0x02100043u,
                        0x0218005Bu, 0x0218003Au, 0x020C003Fu, 0x0210003Eu, 0x02100044u, 0x0218003Du, 0x020C0042u,
                        0x02100041u, 0x02100045u, 0x02180040u, 0x020C001Eu, 0x02100032u, 0x0210001Fu, 0x02180020u})
    v.push_back(static_cast<Fmt>(code));
  return v;
}

const IVyPixelFormatInfo& Info(Fmt f) { return *GetIVyPixelFormatInfo(f); }

// Unpacked raw format of a colour filter and a depth, written out apart from the module.
Fmt Raw(EVyPixelColorFilter_t filter, size_t depth) {
  static const std::map<std::pair<int, size_t>, Fmt> table = [] {
    std::map<std::pair<int, size_t>, Fmt> m;
    for (Fmt f : AllFormats()) {
      const IVyPixelFormatInfo& i = Info(f);
      if ((i.IsMono() || i.IsBayer()) && i.GetPixelBitCount() == (i.GetComponentBitDepth() <= 8 ? 8u : 16u))
        m[{i.GetPixelColorFilter(0, 0), i.GetComponentBitDepth()}] = f;
    }
    return m;
  }();
  auto it = table.find({filter, depth});
  return it == table.end() ? VyPixelFormat_Undefined : it->second;
}

Fmt BGRa(size_t depth) {
  switch (depth) {
    case 8: return VyPixelFormat_BGRa8;
    case 10: return VyPixelFormat_BGRa10;
    case 12: return VyPixelFormat_BGRa12;
    case 14: return VyPixelFormat_BGRa14;
    case 16: return VyPixelFormat_BGRa16;
    default: return VyPixelFormat_Undefined;
  }
}

// The intermediate format of a route step, by the route rules; Undefined for a primitive.
Fmt Intermediate(const std::string& name, Fmt s, Fmt d) {
  const IVyPixelFormatInfo& si = Info(s);
  const IVyPixelFormatInfo& di = Info(d);
  if (name == "ConverterViaRaw") {
    const size_t depth = di.GetComponentBitDepth();
    return depth < 8 ? d : Raw(si.GetPixelColorFilter(0, 0), depth == 8 ? 8 : 16);
  }
  if (name == "ConverterViaSameBitRaw")
    return di.GetPixelColorFilter(0, 0) == VyPixelColorFilter_None
               ? d
               : Raw(di.GetPixelColorFilter(0, 0), si.GetComponentBitDepth());
  if (name == "ConverterViaSameBitBGR") return BGRa(si.GetComponentBitDepth());
  if (name == "ConverterViaUnpack") return Raw(si.GetPixelColorFilter(0, 0), std::max<size_t>(8, si.GetComponentBitDepth()));
  return VyPixelFormat_Undefined;
}

class ConverterTableTest : public KitTest {};

}  // namespace

TEST_F(ConverterTableTest, RowsKeysAndFunctionsMatchTheGroupedTable) {
  const std::vector<C::SConvRow>& rows = C::GetConvArray();
  // The hand-written table of this converter had 2716 rows for 2664 keys. Of
  // its 52 repeated rows, 6 repeat a key with another function and 4 name
  // GVSP_BayerBG12Packed where GVSP_BayerGR12Packed belongs; both kinds are
  // rebuilt here. The other 42 repeat a key with its own function and change
  // nothing, so they are not reproduced: 2664 + 6 + 4 rows.
  EXPECT_EQ(rows.size(), 2674u);

  std::map<std::pair<Fmt, Fmt>, std::string> first;
  for (const auto& r : rows) first.emplace(std::make_pair(r.eSource, r.eDestination), r.szName);
  EXPECT_EQ(first.size(), 2664u);

  std::map<std::string, int> perFunction;
  for (const auto& kv : first) ++perFunction[kv.second];
  const std::map<std::string, int> expected = {
      {"ConverterPackedToUnpacked", 110},       {"ConverterGEVPackedToUnpacked", 42},
      {"ConverterMonoB2BGRB_RGBB", 4},          {"ConverterMonoB2BGRW_RGBW", 9},
      {"ConverterMonoW2BGRW_RGBW", 30},         {"ConverterColorInterporation", 52},
      {"ConverterYUV2MonoOrBGR", 90},           {"ConverterViaSameBitBGR", 866},
      {"ConverterViaSameBitRaw", 232},          {"Converter2YCbCr", 76},
      {"ConverterBayerBToMonoB", 4},            {"ConverterBayerWToMonoW", 16},
      {"ConverterViaRaw", 404},                 {"ConverterViaUnpack", 102},
      {"ConverterUnpackedToPacked8", 22},       {"ConverterUnpackedBToGevPacked", 10},
      {"ConverterRawMono8ToRawMono16", 20},     {"ConverterRawMono16ToRawMono16", 60},
      {"ConverterRawMono16ToRawMono8", 20},     {"ConverterBGRx8ToBGR10p", 8},
      {"ConverterBGRx16ToBGR10p", 18},          {"ConverterBGR10p32ToBGRx8", 8},
      {"ConverterBGR10pToBGRx16", 18},          {"ConverterBGRxWToBGRxW", 72},
      {"ConverterBGRx8ToBGRx8", 12},            {"ConverterBGRx8ToBGRx16", 36},
      {"ConverterBGRx16ToBGRx8", 36},           {"ConverterBGR8ToMono8", 4},
      {"ConverterBGR16ToMono16", 30},           {"ConverterBGR16ToMono8", 9},
      {"ConverterBGR8ToBayer8", 16},            {"ConverterBGR16ToBayer16", 36},
      {"ConverterPlanarToNonPlanar_8_8", 4},    {"ConverterPlanarToNonPlanar_8_16", 9},
      {"ConverterPlanarToNonPlanar_16_8", 12},  {"ConverterPlanarToNonPlanar_16_16", 27},
      {"ConverterNonPlanarToPlanar_8_8", 4},    {"ConverterNonPlanarToPlanar_8_16", 12},
      {"ConverterNonPlanarToPlanar_16_8", 9},   {"ConverterNonPlanarToPlanar_16_16", 27},
      {"ConverterPlanarToPlanar_8_16", 3},      {"ConverterPlanarToPlanar_16_8", 3},
      {"ConverterPlanarToPlanar_16_16", 6},     {"ConverterMonoToPlanar_8_8", 1},
      {"ConverterMonoToPlanar_8_16", 3},        {"ConverterMonoToPlanar_16_8", 4},
      {"ConverterMonoToPlanar_16_16", 12},      {"ConverterBGRxToBGRXp_8_16", 16},
      {"ConverterBGRpxToBGRX_16_8", 16},        {"ConverterBGRxToBGRXp_16_16", 12},
      {"ConverterBGRpxToBGRX_16_16", 12},
  };
  EXPECT_EQ(perFunction, expected);

  // Every key joins two of the 98 formats, never a format with itself.
  const std::vector<Fmt> all = AllFormats();
  const std::set<Fmt> known(all.begin(), all.end());
  for (const auto& kv : first) {
    EXPECT_TRUE(known.count(kv.first.first) && known.count(kv.first.second));
    EXPECT_NE(kv.first.first, kv.first.second);
  }
}

TEST_F(ConverterTableTest, FirstRowWinsForColourToMono16) {
  const auto& rows = C::GetConvArray();
  for (Fmt s : {VyPixelFormat_BGR10, VyPixelFormat_BGRa10, VyPixelFormat_BGR12, VyPixelFormat_BGRa12,
                VyPixelFormat_BGR14, VyPixelFormat_BGRa14}) {
    EXPECT_STREQ(C::GetConverterName(s, VyPixelFormat_Mono16), "ConverterViaSameBitRaw");
    const auto later = std::count_if(rows.begin(), rows.end(), [&](const C::SConvRow& r) {
      return r.eSource == s && r.eDestination == VyPixelFormat_Mono16 &&
             std::string(r.szName) == "ConverterBGR16ToMono16";
    });
    EXPECT_EQ(later, 1);
  }
  EXPECT_STREQ(C::GetConverterName(VyPixelFormat_BGR16, VyPixelFormat_Mono16), "ConverterBGR16ToMono16");
}

TEST_F(ConverterTableTest, GapsStayGaps) {
  CVyPixelFormatConverter conv;
  for (Fmt d : {VyPixelFormat_BGR10, VyPixelFormat_BGRa10, VyPixelFormat_CBGR10p32, VyPixelFormat_RGB10p32}) {
    EXPECT_EQ(conv.GetConverter(VyPixelFormat_GVSP_BayerGR12Packed, d), nullptr);
    EXPECT_NE(conv.GetConverter(VyPixelFormat_GVSP_BayerBG12Packed, d), nullptr);
    EXPECT_NE(conv.GetConverter(VyPixelFormat_GVSP_BayerRG12Packed, d), nullptr);
  }
  for (Fmt s : {VyPixelFormat_GVSP_BayerGR10Packed, VyPixelFormat_GVSP_BayerRG12Packed}) {
    const Fmt phase14 = s == VyPixelFormat_GVSP_BayerGR10Packed ? VyPixelFormat_BayerGR14 : VyPixelFormat_BayerRG14;
    const Fmt phase16 = s == VyPixelFormat_GVSP_BayerGR10Packed ? VyPixelFormat_BayerGR16 : VyPixelFormat_BayerRG16;
    EXPECT_EQ(conv.GetConverter(s, phase14), nullptr);
    EXPECT_NE(conv.GetConverter(s, phase16), nullptr);
  }
  // Same-phase groups pair no phase with another.
  EXPECT_EQ(conv.GetConverter(VyPixelFormat_BayerRG8, VyPixelFormat_BayerGB16), nullptr);
  EXPECT_EQ(conv.GetConverter(VyPixelFormat_BayerRG10p, VyPixelFormat_BayerGR8), nullptr);
}

TEST_F(ConverterTableTest, EveryPairIsAnsweredByTheMapOrTheCopy) {
  CVyPixelFormatConverter conv;
  const std::vector<Fmt> all = AllFormats();
  ASSERT_EQ(all.size(), 98u);
  int accepted = 0;
  for (Fmt s : all) {
    for (Fmt d : all) {
      const bool bKey = C::GetConverterName(s, d) != nullptr;
      const bool bAccepted = conv.GetConverter(s, d) != nullptr;
      EXPECT_EQ(bAccepted, bKey || s == d) << Info(s).GetName() << " -> " << Info(d).GetName();
      accepted += bAccepted;
    }
  }
  EXPECT_EQ(accepted, 2664 + 98);
  // A code no row knows is still its own destination.
  const Fmt unknown = static_cast<Fmt>(0x01080099);
  EXPECT_NE(conv.GetConverter(unknown, unknown), nullptr);
  EXPECT_EQ(conv.GetConverter(unknown, VyPixelFormat_Mono8), nullptr);
}

TEST_F(ConverterTableTest, RoutesEndInAtMostThreePrimitives) {
  // Follow the route rules symbolically; a step between equal formats is a copy
  // and a missing key on the way is a fault of the table.
  std::function<int(Fmt, Fmt)> primitives = [&](Fmt s, Fmt d) -> int {
    if (s == d) return 1;
    const char* name = C::GetConverterName(s, d);
    if (name == nullptr) {
      ADD_FAILURE() << "no key " << Info(s).GetName() << " -> " << Info(d).GetName();
      return 100;
    }
    const Fmt t = Intermediate(name, s, d);
    if (t == VyPixelFormat_Undefined) return 1;
    EXPECT_NE(t, s);
    EXPECT_NE(t, d);
    return primitives(s, t) + primitives(t, d);
  };
  std::map<int, int> histogram;
  std::set<std::pair<Fmt, Fmt>> seen;
  for (const auto& r : C::GetConvArray())
    if (seen.insert({r.eSource, r.eDestination}).second) ++histogram[primitives(r.eSource, r.eDestination)];
  EXPECT_EQ(histogram, (std::map<int, int>{{1, 1060}, {2, 1299}, {3, 305}}));
}

TEST_F(ConverterTableTest, WorkedRoutesTakeTheirIntermediates) {
  struct Case {
    Fmt s, d, t;
    const char* route;
  } cases[] = {
      {VyPixelFormat_BayerRG12p, VyPixelFormat_BGR8, VyPixelFormat_BayerRG8, "ConverterViaRaw"},
      {VyPixelFormat_BayerRG12p, VyPixelFormat_BGR12, VyPixelFormat_BayerRG12, "ConverterViaUnpack"},
      {VyPixelFormat_BayerRG12, VyPixelFormat_BGR8, VyPixelFormat_BayerRG8, "ConverterViaRaw"},
      {VyPixelFormat_BayerRG8, VyPixelFormat_BGR16, VyPixelFormat_BGRa8, "ConverterViaSameBitBGR"},
      {VyPixelFormat_BayerGR14p, VyPixelFormat_RGB8_Planar, VyPixelFormat_BGRa14, "ConverterViaSameBitBGR"},
      {VyPixelFormat_Mono12p, VyPixelFormat_BGR8, VyPixelFormat_Mono8, "ConverterViaRaw"},
      {VyPixelFormat_BGR8, VyPixelFormat_Mono16, VyPixelFormat_Mono8, "ConverterViaSameBitRaw"},
      {VyPixelFormat_BGR8, VyPixelFormat_BayerRG12p, VyPixelFormat_BayerRG8, "ConverterViaSameBitRaw"},
      {VyPixelFormat_RGB10p32, VyPixelFormat_Mono12, VyPixelFormat_BGRa10, "ConverterViaSameBitBGR"},
      {VyPixelFormat_YCbCr422_8, VyPixelFormat_Mono16, VyPixelFormat_Mono8, "ConverterViaSameBitRaw"},
      {VyPixelFormat_BGR10, VyPixelFormat_Mono16, VyPixelFormat_Mono10, "ConverterViaSameBitRaw"},
  };
  for (const Case& c : cases) {
    ASSERT_STREQ(C::GetConverterName(c.s, c.d), c.route) << Info(c.s).GetName() << " -> " << Info(c.d).GetName();
    EXPECT_EQ(Intermediate(c.route, c.s, c.d), c.t) << Info(c.s).GetName() << " -> " << Info(c.d).GetName();
  }
  EXPECT_STREQ(C::GetConverterName(VyPixelFormat_BayerGR14p, VyPixelFormat_BGRa14), "ConverterViaUnpack");
  EXPECT_STREQ(C::GetConverterName(VyPixelFormat_BGRa14, VyPixelFormat_RGB8_Planar), "ConverterNonPlanarToPlanar_16_8");
}
