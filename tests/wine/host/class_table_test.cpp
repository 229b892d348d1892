// The class table: the factory DllGetClassObject hands out creates through the
// row of the CLSID asked for, and only rows with a creator are served.
#include <gtest/gtest.h>

#include <array>

#include "com/com_ptr.h"
#include "server/class_factory.h"

namespace vd::testhost {
namespace {

// Two made-up classes; the creators report which row was used.
const CLSID kFirst = {0x6d1b7a50, 0x1c3e, 0x4f0a, {0x9a, 0x11, 0x2b, 0x3c, 0x4d, 0x5e, 0x6f, 0x01}};
const CLSID kSecond = {0x6d1b7a50, 0x1c3e, 0x4f0a, {0x9a, 0x11, 0x2b, 0x3c, 0x4d, 0x5e, 0x6f, 0x02}};
const CLSID kNoCreator = {0x6d1b7a50, 0x1c3e, 0x4f0a, {0x9a, 0x11, 0x2b, 0x3c, 0x4d, 0x5e, 0x6f, 0x03}};
const CLSID kAbsent = {0x6d1b7a50, 0x1c3e, 0x4f0a, {0x9a, 0x11, 0x2b, 0x3c, 0x4d, 0x5e, 0x6f, 0x04}};

HRESULT CreateFirst(REFIID, void** out) {
  *out = nullptr;
  return S_FALSE;
}
HRESULT CreateSecond(REFIID, void** out) {
  *out = nullptr;
  return E_ABORT;
}

const std::array<win32::ClassEntry, 3> kTable{{
    {&kFirst, L"Test.First", L"First", L"Apartment", &CreateFirst},
    {&kSecond, L"Test.Second", L"Second", L"Both", &CreateSecond},
    {&kNoCreator, L"Test.NoCreator", L"NoCreator"},
}};

struct Case {
  const CLSID* clsid;
  HRESULT factory;   // what asking for the factory gives
  HRESULT creation;  // what its CreateInstance gives (the row's creator)
};

TEST(ClassTableTest, TheFactoryCreatesThroughItsOwnRow) {
  const Case cases[] = {
      {&kFirst, S_OK, S_FALSE},
      {&kSecond, S_OK, E_ABORT},
      {&kNoCreator, CLASS_E_CLASSNOTAVAILABLE, S_OK},
      {&kAbsent, CLASS_E_CLASSNOTAVAILABLE, S_OK},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.clsid->Data4[7]);
    win32::ComPtr<IClassFactory> factory;
    EXPECT_EQ(win32::GetClassObject(kTable, *c.clsid, IID_IClassFactory, factory.PutVoid()), c.factory);
    if (FAILED(c.factory)) {
      EXPECT_FALSE(factory);
      continue;
    }
    ASSERT_TRUE(factory);
    void* object = &factory;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, &object), c.creation);
    EXPECT_EQ(object, nullptr);
  }
}

TEST(ClassTableTest, FindClassGivesTheRowOrNothing) {
  EXPECT_EQ(win32::FindClass(kTable, kSecond), &kTable[1]);
  EXPECT_STREQ(win32::FindClass(kTable, kNoCreator)->threadingModel, L"Apartment") << "the default";
  EXPECT_EQ(win32::FindClass(kTable, kAbsent), nullptr);
}

}  // namespace
}  // namespace vd::testhost
