#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "PixelConversion/SharedTableHolder.h"
#include "PixelConversion/VyLookUpTableManager.h"

using namespace VyApi;

namespace {

struct TableRef {
  SharedTable* p;
  explicit TableRef(SharedTable* t) : p(t) {}
  ~TableRef() { p->Release(); }
  unsigned short operator[](size_t i) const { return p->m_pTable[i]; }
};

TableRef Lock(CVyLookUpTableManager& m, size_t s, size_t d) { return TableRef(m.LockTable(s, d)); }

}  // namespace

TEST(LookUpTableEntries, ReductionWithGammaOneShiftsRight) {
  CVyLookUpTableManager m;
  TableRef t = Lock(m, 12, 8);
  EXPECT_EQ(t[4095], 255);
  EXPECT_EQ(t[16], 1);
  EXPECT_EQ(t[15], 0);
  EXPECT_EQ(t.p->m_nDestinationBits, 8u);
}

TEST(LookUpTableEntries, EachExpansionMode) {
  CVyLookUpTableManager m;
  {  // Gamma mode with gamma 1 is a rounded linear stretch.
    TableRef t = Lock(m, 8, 12);
    EXPECT_EQ(t[255], 4095);
    EXPECT_EQ(t[1], 16);
    EXPECT_EQ(t[0], 0);
    EXPECT_EQ(t[128], 2056);  // 128/255*4095 + 0.5 = 2056.02
  }
  m.m_eBitExpansionMode = VyBitExpansionMode_Fixed;
  {
    TableRef t = Lock(m, 8, 12);
    EXPECT_EQ(t[255], 255);
    EXPECT_EQ(t[7], 7);
  }
  m.m_eBitExpansionMode = VyBitExpansionMode_LeftShiftBy0;
  {
    TableRef t = Lock(m, 8, 12);
    EXPECT_EQ(t[255], 4080);
    EXPECT_EQ(t[0], 0);
    EXPECT_EQ(t[1], 16);
  }
  m.m_eBitExpansionMode = VyBitExpansionMode_LeftShiftBy1;
  {
    TableRef t = Lock(m, 8, 12);
    EXPECT_EQ(t[255], 4095);
    EXPECT_EQ(t[0], 15);
    EXPECT_EQ(t[1], 31);
  }
  // An unknown mode value from the register behaves like LeftShiftBy0.
  m.m_eBitExpansionMode = static_cast<EVyBitExpansionMode_t>(7);
  {
    TableRef t = Lock(m, 10, 16);
    EXPECT_EQ(t[1023], 1023 << 6);
  }
}

TEST(LookUpTableEntries, GammaIsTheExponentAndDarkensAboveOne) {
  CVyLookUpTableManager m;
  m.m_dGammaValue = 2.2;
  TableRef t = Lock(m, 12, 8);
  // pow(2048/4095, 2.2) * 255 + 0.5 = 56.03
  EXPECT_EQ(t[2048], 56);
  EXPECT_EQ(t[4095], 255);
  EXPECT_EQ(t[0], 0);
  // Gamma other than 1 also bends a reduction to equal depth.
  TableRef u = Lock(m, 8, 8);
  EXPECT_EQ(u[128], 56);  // pow(128/255, 2.2) * 255 + 0.5 = 56.48
}

TEST(LookUpTableEntries, GammaZeroMapsEverythingToMax) {
  CVyLookUpTableManager m;
  m.m_dGammaValue = 0.0;
  TableRef t = Lock(m, 10, 8);
  EXPECT_EQ(t[0], 255);
  EXPECT_EQ(t[1], 255);
  EXPECT_EQ(t[1023], 255);
}

TEST(LookUpTableEntries, ExpansionWithGammaIgnoresShiftModesOnlyInGammaMode) {
  CVyLookUpTableManager m;
  m.m_dGammaValue = 2.0;
  m.m_eBitExpansionMode = VyBitExpansionMode_Fixed;
  TableRef t = Lock(m, 8, 16);  // the mode wins over gamma for an expansion
  EXPECT_EQ(t[200], 200);
  m.m_eBitExpansionMode = VyBitExpansionMode_Gamma;
  TableRef u = Lock(m, 8, 16);  // (200/255)^2 * 65535 + 0.5 = 40314.3
  EXPECT_EQ(u[200], 40314);
}

TEST(LookUpTableCache, SteadyKeyReusesTheTable) {
  CVyLookUpTableManager m;
  SharedTable* a = m.LockTable(12, 8);
  SharedTable* b = m.LockTable(12, 8);
  EXPECT_EQ(a, b);
  EXPECT_EQ(a->m_nRefCount.load(), 3);  // the manager and two callers
  a->Release();
  b->Release();
  EXPECT_EQ(a->m_nRefCount.load(), 1);
}

TEST(LookUpTableCache, ModeMattersOnlyForExpansions) {
  CVyLookUpTableManager m;
  SharedTable* r1 = m.LockTable(12, 8);
  m.m_eBitExpansionMode = VyBitExpansionMode_LeftShiftBy1;
  SharedTable* r2 = m.LockTable(12, 8);
  EXPECT_EQ(r1, r2);
  r1->Release();
  r2->Release();

  SharedTable* e1 = m.LockTable(8, 12);
  EXPECT_EQ(e1->m_pTable[0], 15);
  m.m_eBitExpansionMode = VyBitExpansionMode_LeftShiftBy0;
  SharedTable* e2 = m.LockTable(8, 12);
  EXPECT_NE(e1, e2);
  EXPECT_EQ(e1->m_pTable[0], 15);  // the old holder still reads its own table
  EXPECT_EQ(e2->m_pTable[0], 0);
  e1->Release();
  e2->Release();
}

TEST(LookUpTableCache, GammaChangeRebuildsAndOldTableSurvivesWithItsHolder) {
  CVyLookUpTableManager m;
  SharedTable* a = m.LockTable(8, 8);
  EXPECT_EQ(a->m_pTable[100], 100);
  m.m_dGammaValue = 2.0;
  SharedTable* b = m.LockTable(8, 8);
  EXPECT_NE(a, b);
  EXPECT_EQ(a->m_nRefCount.load(), 1);  // only the caller holds it now
  EXPECT_EQ(a->m_pTable[100], 100);
  EXPECT_EQ(b->m_pTable[255], 255);
  EXPECT_LT(b->m_pTable[100], 100);
  a->Release();
  b->Release();
}

TEST(LookUpTableCache, HolderTakesATableOnlyForDifferentDepths) {
  CVyLookUpTableManager m;
  {
    PixelConversion::CSharedTableHolder same(m, 12, 12);
    EXPECT_EQ(same.Get(), nullptr);
    PixelConversion::CSharedTableHolder diff(m, 12, 8);
    ASSERT_NE(diff.Get(), nullptr);
    EXPECT_EQ(diff.Get()[4095], 255);
  }
  SharedTable* t = m.LockTable(12, 8);
  EXPECT_EQ(t->m_nRefCount.load(), 2);  // the holder has given its reference back
  t->Release();
}

TEST(LookUpTableConcurrency, ReadersKeepTheirTableWhileAnotherThreadReplacesIt) {
  CVyLookUpTableManager m;
  std::atomic<bool> bStop{false};
  std::atomic<long> nBad{0};
  std::vector<std::thread> readers;
  for (int k = 0; k < 2; ++k) {
    readers.emplace_back([&, k] {
      const size_t s = k == 0 ? 12 : 10;
      while (!bStop.load()) {
        SharedTable* t = m.LockTable(s, 8);
        const unsigned short top = t->m_pTable[(size_t(1) << s) - 1];
        for (size_t i = 0; i < (size_t(1) << s); i += 64)
          if (t->m_pTable[i] > top) ++nBad;
        t->Release();
      }
    });
  }
  for (int i = 0; i < 300; ++i) m.m_dGammaValue = (i % 2) ? 1.0 : 0.5 + 0.001 * i;
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  bStop = true;
  for (auto& r : readers) r.join();
  EXPECT_EQ(nBad.load(), 0);
}
