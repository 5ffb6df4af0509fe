// Behaviour of the node types, caching, invalidation, access modes and the
// description checks, on small descriptions over a memory port.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "TestHelpers.h"

using namespace GenApi;
using GenApiTest::SMap;

namespace {

const char* kRegs = R"(
<IntReg Name="BE16"><Address>0x10</Address><Length>2</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Sign>Signed</Sign><Endianess>BigEndian</Endianess></IntReg>
<IntReg Name="LE24"><Address>0x20</Address><Length>3</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Sign>Unsigned</Sign><Endianess>LittleEndian</Endianess></IntReg>
<MaskedIntReg Name="LEField"><Address>0x30</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <LSB>4</LSB><MSB>7</MSB><Sign>Signed</Sign><Endianess>LittleEndian</Endianess></MaskedIntReg>
<MaskedIntReg Name="BEBit"><Address>0x30</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Bit>31</Bit><Endianess>BigEndian</Endianess></MaskedIntReg>
<FloatReg Name="F32"><Address>0x40</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>BigEndian</Endianess></FloatReg>
<StringReg Name="Text"><Address>0x50</Address><Length>8</Length><AccessMode>RW</AccessMode><pPort>Device</pPort></StringReg>
<Register Name="Blob"><Address>0x60</Address><pLength>BlobLen</pLength><AccessMode>RW</AccessMode><pPort>Device</pPort></Register>
<Integer Name="BlobLen"><Value>3</Value></Integer>
)";

}  // namespace

TEST(Registers, EndianessSignAndLength) {
  SMap m(kRegs);
  m.Port.m_Memory[0x10] = 0xFF;
  m.Port.m_Memory[0x11] = 0xFE;
  EXPECT_EQ(CIntegerPtr(m["BE16"])->GetValue(), -2);
  EXPECT_EQ(CIntegerPtr(m["BE16"])->GetMin(), -32768);
  EXPECT_EQ(CIntegerPtr(m["LE24"])->GetMax(), 0xFFFFFF);
  CIntegerPtr(m["LE24"])->SetValue(0x123456);
  EXPECT_EQ(m.Port.m_Memory[0x20], 0x56);
  EXPECT_EQ(m.Port.m_Memory[0x22], 0x12);
  EXPECT_THROW(CIntegerPtr(m["LE24"])->SetValue(0x1000000), GenICam::OutOfRangeException);
  CFloatPtr f = m["F32"];
  *f = 2.5;
  EXPECT_EQ(m.Port.m_Memory[0x40], 0x40);  // 2.5f = 0x40200000, big-endian
  EXPECT_EQ(m.Port.m_Memory[0x41], 0x20);
  EXPECT_DOUBLE_EQ(f->GetValue(), 2.5);
}

TEST(Registers, BitFieldsReadModifyWriteInBothBitOrders) {
  SMap m(kRegs);
  m.Port.m_Memory[0x30] = 0xA5;
  CIntegerPtr field = m["LEField"];
  EXPECT_EQ(field->GetValue(), -6);  // bits 7..4 = 1010, signed
  field->SetValue(3);
  EXPECT_EQ(m.Port.m_Memory[0x30], 0x35);  // low nibble kept
  CIntegerPtr bit = m["BEBit"];
  // Big-endian bit 31 is the least significant bit of the whole register,
  // which sits in the last byte.
  bit->SetValue(1);
  EXPECT_EQ(m.Port.m_Memory[0x33], 0x01);
  EXPECT_EQ(m.Port.m_Memory[0x30], 0x35);
}

TEST(Registers, StringAndRawRegisters) {
  SMap m(kRegs);
  CStringPtr s = m["Text"];
  *s = "abc";
  EXPECT_EQ(s->GetValue(), "abc");
  EXPECT_EQ(s->GetMaxLength(), 8);
  EXPECT_THROW(s->SetValue("123456789"), GenICam::OutOfRangeException);
  CRegisterPtr r = m["Blob"];
  EXPECT_EQ(r->GetLength(), 3);
  uint8_t b[3] = {1, 2, 3};
  r->Set(b, 3);
  EXPECT_EQ(r->ToString(), "0x010203");
  EXPECT_THROW(r->Set(b, 2), GenICam::OutOfRangeException);
}

TEST(Integer, RangeChecksAndMessages) {
  SMap m(R"(
<Integer Name="Width"><pValue>WidthReg</pValue><Min>16</Min><pMax>WidthMax</pMax><Inc>4</Inc></Integer>
<IntReg Name="WidthReg"><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></IntReg>
<Integer Name="WidthMax"><Value>640</Value></Integer>)");
  CIntegerPtr w = m["Width"];
  w->SetValue(64);
  EXPECT_EQ(w->GetValue(), 64);
  try {
    w->SetValue(8);
    FAIL();
  } catch (const GenICam::OutOfRangeException& e) {
    EXPECT_STREQ(e.GetDescription(), "Width = 8 must be equal or greater than Min = 16");
  }
  try {
    w->SetValue(644);
    FAIL();
  } catch (const GenICam::OutOfRangeException& e) {
    EXPECT_STREQ(e.GetDescription(), "Width = 644 must be equal or smaller than Max = 640");
  }
  EXPECT_THROW(w->SetValue(18), GenICam::OutOfRangeException);
  w->SetValue(18, false);  // without verification, the value is passed on
  EXPECT_EQ(w->GetValue(), 18);
  CIntegerPtr(m["WidthMax"])->SetValue(20);  // a literal is a writable constant
  EXPECT_EQ(w->GetMax(), 20);
}

TEST(Float, RangeChecksAndText) {
  SMap m(R"(
<Float Name="Gain"><pValue>GainReg</pValue><Min>0.5</Min><Max>4</Max></Float>
<FloatReg Name="GainReg"><Address>0</Address><Length>8</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></FloatReg>)");
  CFloatPtr g = m["Gain"];
  *g = 2.2;
  EXPECT_DOUBLE_EQ(g->GetValue(), 2.2);
  EXPECT_EQ(g->ToString(), "2.2");
  try {
    g->SetValue(4.5);
    FAIL();
  } catch (const GenICam::OutOfRangeException& e) {
    EXPECT_STREQ(e.GetDescription(), "Gain = 4.500000 must be smaller than or equal 4.000000");
  }
  EXPECT_THROW(g->SetValue(0.25), GenICam::OutOfRangeException);
  g->FromString("1.5");
  EXPECT_DOUBLE_EQ(g->GetValue(), 1.5);
  EXPECT_THROW(g->FromString("abc"), GenICam::InvalidArgumentException);
}

TEST(Caching, WriteThroughKeepsTheValueUntilInvalidated) {
  SMap m(R"(
<Integer Name="A"><pValue>AReg</pValue></Integer>
<IntReg Name="AReg"><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></IntReg>
<IntReg Name="N"><Address>4</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Cachable>NoCache</Cachable><Endianess>LittleEndian</Endianess></IntReg>
<IntReg Name="W"><Address>8</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Cachable>WriteAround</Cachable><Endianess>LittleEndian</Endianess></IntReg>)");
  CIntegerPtr a = m["A"];
  a->SetValue(7);
  int reads = m.Port.m_nReads;
  m.Port.m_Memory[0] = 9;  // the device changes behind the map's back
  EXPECT_EQ(a->GetValue(), 7);
  EXPECT_TRUE(a->IsValueCacheValid());
  EXPECT_EQ(m.Port.m_nReads, reads);
  m["AReg"]->InvalidateNode();
  EXPECT_FALSE(a->IsValueCacheValid());
  EXPECT_EQ(a->GetValue(), 9);
  m.Port.m_Memory[0] = 10;
  EXPECT_EQ(a->GetValue(true, true), 10);  // IgnoreCache reads the device
  m.Port.m_Memory[4] = 1;
  EXPECT_EQ(CIntegerPtr(m["N"])->GetValue(), 1);
  m.Port.m_Memory[4] = 2;
  EXPECT_EQ(CIntegerPtr(m["N"])->GetValue(), 2);
  EXPECT_FALSE(m["N"]->IsCachable());
  CIntegerPtr w = m["W"];
  w->SetValue(5);
  reads = m.Port.m_nReads;
  EXPECT_EQ(w->GetValue(), 5);
  EXPECT_EQ(m.Port.m_nReads, reads + 1);  // written around the cache
  m.Ref._InvalidateNodes();
  m.Port.m_Memory[0] = 11;
  EXPECT_EQ(a->GetValue(), 11);
}

TEST(Invalidation, FollowsReferencesInvalidatorsAndCallbacks) {
  SMap m(R"(
<Integer Name="Feature"><pValue>Reg</pValue></Integer>
<IntReg Name="Reg"><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></IntReg>
<IntReg Name="Other"><Address>4</Address><Length>4</Length><AccessMode>RO</AccessMode><pPort>Device</pPort>
  <pInvalidator>Feature</pInvalidator><Endianess>LittleEndian</Endianess></IntReg>)");
  CIntegerPtr other = m["Other"];
  EXPECT_EQ(other->GetValue(), 0);
  m.Port.m_Memory[4] = 3;
  EXPECT_EQ(other->GetValue(), 0);  // cached
  int calls = 0;
  Register(m["Feature"], [&](INode*) { ++calls; });
  CIntegerPtr(m["Feature"])->SetValue(1);  // writing Feature invalidates Other
  EXPECT_EQ(other->GetValue(), 3);
  EXPECT_EQ(calls, 1);
  m["Reg"]->InvalidateNode();  // a register's invalidation reaches the feature above
  EXPECT_EQ(calls, 2);
  NodeList_t parents;
  m["Reg"]->GetParents(parents);
  ASSERT_EQ(parents.size(), 1u);
  EXPECT_EQ(parents[0], m["Feature"]);
}

TEST(AccessMode, CombinesImposedImplementedAvailableLocked) {
  SMap m(R"(
<Integer Name="X"><pIsImplemented>Impl</pIsImplemented><pIsAvailable>Avail</pIsAvailable>
  <pIsLocked>Locked</pIsLocked><Value>1</Value></Integer>
<Integer Name="Impl"><Value>1</Value></Integer>
<Integer Name="Avail"><Value>1</Value></Integer>
<Integer Name="Locked"><Value>0</Value></Integer>
<Integer Name="Y"><ImposedAccessMode>RO</ImposedAccessMode><Value>1</Value></Integer>
<IntReg Name="WOReg"><Address>0</Address><Length>4</Length><AccessMode>WO</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></IntReg>)");
  CIntegerPtr x = m["X"];
  EXPECT_EQ(x->GetAccessMode(), RW);
  *CIntegerPtr(m["Locked"]) = 1;
  EXPECT_EQ(x->GetAccessMode(), RO);
  EXPECT_THROW(x->SetValue(2), GenICam::AccessException);
  *CIntegerPtr(m["Avail"]) = 0;
  EXPECT_EQ(x->GetAccessMode(), NA);
  EXPECT_THROW(x->GetValue(), GenICam::AccessException);
  *CIntegerPtr(m["Impl"]) = 0;
  EXPECT_EQ(x->GetAccessMode(), NI);
  EXPECT_FALSE(IsImplemented(x));
  EXPECT_EQ(m["Y"]->GetAccessMode(), RO);
  EXPECT_THROW(CIntegerPtr(m["Y"])->SetValue(3), GenICam::AccessException);
  EXPECT_EQ(m["WOReg"]->GetAccessMode(), WO);
  EXPECT_THROW(CIntegerPtr(m["WOReg"])->GetValue(), GenICam::AccessException);
  m.Port.m_eMode = RO;  // the port's own mode limits every register on it
  EXPECT_EQ(m["WOReg"]->GetAccessMode(), NA);
}

TEST(Selectors, SelectedFeaturesFollowTheSelector) {
  SMap m(R"(
<Enumeration Name="Sel"><EnumEntry Name="A"><Value>0</Value></EnumEntry><EnumEntry Name="B"><Value>1</Value></EnumEntry>
  <Value>0</Value><pSelected>Ratio</pSelected></Enumeration>
<Integer Name="Ratio"><pValue>RatioReg</pValue></Integer>
<IntReg Name="RatioReg"><pIndex Offset="4">Sel</pIndex><Address>0x100</Address><Length>4</Length><AccessMode>RW</AccessMode>
  <pPort>Device</pPort><Endianess>LittleEndian</Endianess></IntReg>)");
  CEnumerationPtr sel = m["Sel"];
  CIntegerPtr ratio = m["Ratio"];
  ratio->SetValue(10);
  *sel = "B";
  ratio->SetValue(20);
  EXPECT_EQ(m.Port.m_Memory[0x100], 10);
  EXPECT_EQ(m.Port.m_Memory[0x104], 20);
  *sel = 0;
  EXPECT_EQ(ratio->GetValue(), 10);
  FeatureList_t f;
  CSelectorPtr(m["Sel"])->GetSelectedFeatures(f);
  ASSERT_EQ(f.size(), 1u);
  EXPECT_EQ(f[0]->GetNode(), m["Ratio"]);
  CSelectorPtr(m["Ratio"])->GetSelectingFeatures(f);
  ASSERT_EQ(f.size(), 1u);
  EXPECT_EQ(f[0]->GetNode(), m["Sel"]);
  EXPECT_TRUE(CSelectorPtr(m["Sel"])->IsSelector());
}

TEST(Enumeration, EntriesAreNodesAndUnknownValuesRaise) {
  SMap m(R"(
<Enumeration Name="Mode"><EnumEntry Name="Off"><Value>0</Value></EnumEntry>
  <EnumEntry Name="Continuous"><Value>2</Value></EnumEntry><pValue>ModeReg</pValue></Enumeration>
<IntReg Name="ModeReg"><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></IntReg>
<Integer Name="Off"><Value>5</Value></Integer>)");
  CEnumerationPtr e = m["Mode"];
  CEnumEntryPtr entry = m["EnumEntry_Mode_Continuous"];
  ASSERT_TRUE(entry.IsValid());
  EXPECT_EQ(entry->GetSymbolic(), "Continuous");
  EXPECT_TRUE(CIntegerPtr(m["Off"]).IsValid());  // an entry name may equal another node's name
  *e = "Continuous";
  EXPECT_EQ(m.Port.m_Memory[0], 2);
  EXPECT_EQ(**e, "Continuous");
  *e = int64_t(0);
  EXPECT_EQ(e->ToString(), "Off");
  EXPECT_THROW(*e = "Nope", GenICam::InvalidArgumentException);
  EXPECT_THROW(e->SetIntValue(7), GenICam::OutOfRangeException);
  m.Port.m_Memory[0] = 7;
  m["ModeReg"]->InvalidateNode();
  EXPECT_THROW(e->ToString(), GenICam::LogicalErrorException);
  StringList_t s;
  e->GetSymbolics(s);
  EXPECT_EQ(s.size(), 2u);
}

TEST(BooleanAndCommand, OnOffValuesAndExecution) {
  SMap m(R"(
<Boolean Name="Flag"><pValue>FlagReg</pValue><OnValue>3</OnValue><OffValue>1</OffValue></Boolean>
<IntReg Name="FlagReg"><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></IntReg>
<Command Name="Start"><pValue>StartReg</pValue><CommandValue>1</CommandValue></Command>
<IntReg Name="StartReg"><Address>4</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></IntReg>)");
  CBooleanPtr b = m["Flag"];
  *b = true;
  EXPECT_EQ(m.Port.m_Memory[0], 3);
  EXPECT_EQ(b->ToString(), "1");
  *b = false;
  EXPECT_EQ(b->ToString(), "0");
  m.Port.m_Memory[0] = 2;
  m["FlagReg"]->InvalidateNode();
  EXPECT_THROW(b->GetValue(), GenICam::LogicalErrorException);
  CCommandPtr c = m["Start"];
  c->Execute();
  EXPECT_EQ(m.Port.m_Memory[4], 1);
  EXPECT_FALSE(c->IsDone());
  m.Port.m_Memory[4] = 0;  // the device clears the command when done
  EXPECT_TRUE(c->IsDone());
}

TEST(Formulas, SwissKnivesAndConverters) {
  SMap m(R"(
<IntReg Name="Raw"><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></IntReg>
<Integer Name="Lim"><Value>7</Value><Max>100</Max></Integer>
<IntSwissKnife Name="Isk"><pVariable Name="R">Raw</pVariable><pVariable Name="L">Lim</pVariable>
  <Constant Name="K">3</Constant><Expression Name="E">R*K</Expression><Formula>E + L.Max</Formula></IntSwissKnife>
<SwissKnife Name="Sk"><pVariable Name="R">Raw</pVariable><Formula>R / 4</Formula></SwissKnife>
<IntSwissKnife Name="Div"><pVariable Name="R">Raw</pVariable><Formula>10 / R</Formula></IntSwissKnife>
<Converter Name="Exposure"><FormulaTo>FROM * 2</FormulaTo><FormulaFrom>TO / 2</FormulaFrom><pValue>Raw</pValue>
  <Slope>Increasing</Slope></Converter>
<IntConverter Name="Offset"><FormulaTo>FROM + 10</FormulaTo><FormulaFrom>TO - 10</FormulaFrom><pValue>Raw</pValue></IntConverter>)");
  CIntegerPtr raw = m["Raw"];
  raw->SetValue(5);
  EXPECT_EQ(CIntegerPtr(m["Isk"])->GetValue(), 115);
  EXPECT_DOUBLE_EQ(CFloatPtr(m["Sk"])->GetValue(), 1.25);
  EXPECT_EQ(m["Isk"]->GetAccessMode(), RO);
  CFloatPtr exp = m["Exposure"];
  *exp = 21.0;
  EXPECT_EQ(raw->GetValue(), 42);
  EXPECT_DOUBLE_EQ(exp->GetValue(), 21.0);
  EXPECT_DOUBLE_EQ(exp->GetMax(), 4294967295.0 / 2);
  CIntegerPtr off = m["Offset"];
  *off = 1;
  EXPECT_EQ(raw->GetValue(), 11);
  EXPECT_EQ(off->GetValue(), 1);
  raw->SetValue(0);
  EXPECT_THROW(CIntegerPtr(m["Div"])->GetValue(), GenICam::LogicalErrorException);
}

TEST(Ports, SeveralPortsAreBoundByName) {
  GenApiTest::CMemoryPort device(64), second(64);
  CNodeMapRef ref;
  ref._LoadXMLFromString(GenApiTest::Describe(R"(
<IntReg Name="A"><Address>0</Address><Length>1</Length><AccessMode>RW</AccessMode><pPort>Device</pPort></IntReg>
<IntReg Name="B"><Address>0</Address><Length>1</Length><AccessMode>RW</AccessMode><pPort>Second</pPort></IntReg>
<Port Name="Second"/>)").c_str());
  EXPECT_TRUE(ref._Connect(&device, "Device"));
  EXPECT_FALSE(ref._Connect(&second, "Nowhere"));
  EXPECT_EQ(ref._GetNode("B")->GetAccessMode(), NA);  // not yet connected
  EXPECT_TRUE(ref._Connect(&second, "Second"));
  CIntegerPtr(ref._GetNode("A"))->SetValue(1);
  CIntegerPtr(ref._GetNode("B"))->SetValue(2);
  EXPECT_EQ(device.m_Memory[0], 1);
  EXPECT_EQ(second.m_Memory[0], 2);
}

TEST(Descriptions, BadDescriptionsNameTheNodeAndLine) {
  auto load = [](const std::string& nodes) {
    CNodeMapRef r;
    r._LoadXMLFromString(GenApiTest::Describe(nodes).c_str());
  };
  auto message = [&](const std::string& nodes) -> std::string {
    try {
      load(nodes);
    } catch (const GenICam::GenericException& e) {
      return e.GetDescription();
    }
    return "loaded";
  };
  EXPECT_EQ(message("<Integer Name=\"A\"><pValue>Missing</pValue></Integer>"),
            "Node 'A' (line 3): pValue refers to 'Missing', which is not a node of the description");
  EXPECT_EQ(message("<Integer Name=\"A\"><Value>1</Value><Bogus>1</Bogus></Integer>"),
            "Node 'A' (line 3): unknown or repeated element 'Bogus' in a Integer");
  EXPECT_EQ(message("<Integer Name=\"A\"><Min>1</Min></Integer>"),
            "Node 'A' (line 3): Integer A is missing Value, pValue or pIndex");
  EXPECT_EQ(message("<Integer Name=\"A\"><Value>x1</Value></Integer>"),
            "Node 'A' (line 3): Value 'x1' is not an integer");
  EXPECT_NE(message("<Integer Name=\"A\"><Value>1</Value></Integer>\n<Integer Name=\"A\"><Value>2</Value></Integer>")
                .find("exists already"),
            std::string::npos);
  EXPECT_THROW(load("<Integer Name=\"A\">"), GenICam::RuntimeException);
  EXPECT_THROW(load("<IntSwissKnife Name=\"S\"><Formula>1 +</Formula></IntSwissKnife>"),
               GenICam::InvalidArgumentException);
  EXPECT_NE(message("<IntSwissKnife Name=\"S\"><Formula>Q + 1</Formula></IntSwissKnife>").find("uses 'Q'"),
            std::string::npos);
  EXPECT_THROW(CNodeMapFactory(ContentType_Xml, gcstring("/nonexistent.xml")), GenICam::RuntimeException);
}

TEST(Descriptions, SchemaVersionsAndByteOrderMark) {
  const std::string nodes = "<Integer Name=\"A\"><Value>4</Value></Integer>";
  for (const char* ns : {"Version_1_0", "Version_1_1"}) {
    std::string xml = "\xEF\xBB\xBF" + GenApiTest::Describe(nodes, ns);
    CNodeMapFactory f(ContentType_Xml, xml.data(), xml.size());
    CNodeMapRef r;
    r._Attach(f.CreateNodeMap(), "Device", nullptr);
    EXPECT_EQ(CIntegerPtr(r._GetNode("A"))->GetValue(), 4);
  }
}

TEST(NodeMapRef, SharesTheMapAndRaisesWhenEmpty) {
  CNodeMapRef empty;
  try {
    empty._GetNode("A");
    FAIL();
  } catch (const GenICam::LogicalErrorException& e) {
    EXPECT_STREQ(e.GetDescription(), "NULL pointer dereferenced");
  }
  EXPECT_THROW(empty._Connect(nullptr, "Device"), GenICam::LogicalErrorException);
  CIntegerPtr none;
  EXPECT_THROW(none->GetValue(), GenICam::LogicalErrorException);
  EXPECT_FALSE(IsReadable(none));
  std::string xml = GenApiTest::Describe("<Integer Name=\"A\"><Value>4</Value></Integer>");
  CNodeMapFactory f(ContentType_Xml, xml.data(), xml.size());
  EXPECT_FALSE(f.IsEmpty());
  CNodeMapRef b;
  {
    CNodeMapRef a("Cam");
    a._Attach(f.CreateNodeMap("Cam"), "Cam", nullptr);
    b = a;
    EXPECT_EQ(static_cast<INodeMap*>(a), static_cast<INodeMap*>(b));
  }
  EXPECT_EQ(b._GetDeviceName(), "Cam");
  EXPECT_EQ(b._GetNode("Nope"), nullptr);
  EXPECT_EQ(CIntegerPtr(b._GetNode("A"))->GetValue(), 4);  // still alive after a's release
  CNodeMapFactory sub = f.ExtractSubtree("A");
  EXPECT_FALSE(sub.IsEmpty());
  EXPECT_TRUE(f.ExtractSubtree("Nope").IsEmpty());
  INodeMap* p = sub.CreateNodeMap();
  EXPECT_EQ(p->GetNumNodes(), 1u);
  dynamic_cast<IDestroy*>(p)->Destroy();
}

TEST(Threads, ConcurrentGetAndSetOnOneMap) {
  SMap m(R"(
<Integer Name="A"><pValue>AReg</pValue></Integer>
<IntReg Name="AReg"><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <Endianess>LittleEndian</Endianess></IntReg>
<Integer Name="B"><pValue>BReg</pValue></Integer>
<IntReg Name="BReg"><Address>8</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
  <pInvalidator>A</pInvalidator><Endianess>LittleEndian</Endianess></IntReg>)");
  std::atomic<int> bad{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&, t] {
      CIntegerPtr a = m["A"], b = m["B"];
      for (int i = 0; i < 2000; ++i) {
        if (t % 2) {
          a->SetValue(i);
          b->SetValue(i);
        } else {
          int64_t v = a->GetValue();
          if (v < 0 || v >= 2000) ++bad;
          b->GetNode()->InvalidateNode();
        }
      }
    });
  }
  for (auto& th : threads) th.join();
  EXPECT_EQ(bad.load(), 0);
}
