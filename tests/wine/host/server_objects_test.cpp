// The class table: the factory DllGetClassObject hands out creates through the
// row of the CLSID asked for, and only rows with a creator are served. The
// object base: QueryInterface answers from the object's table of interfaces
// with one identity, and every live object keeps the module loaded.
#include <gtest/gtest.h>

#include <array>

#include "VarDeskGUI.h"
#include "com/com_ptr.h"
#include "server/class_factory.h"
#include "server/module.h"
#include "server/selection_handler_object.h"

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

struct Query {
  const char* name;
  const IID* iid;
  HRESULT hr;
};

TEST(ComObjectTest, QueryInterfaceAnswersFromTheTableWithOneIdentity) {
  const long before = win32::LiveModuleObjects();
  win32::ComPtr<IUnknown> object;
  ASSERT_EQ(win32::SelectionHandlerObject::Create(IID_IUnknown, object.PutVoid()), S_OK);
  EXPECT_EQ(win32::LiveModuleObjects(), before + 1);

  const Query queries[] = {
      {"IUnknown", &IID_IUnknown, S_OK},
      {"IDispatch", &IID_IDispatch, S_OK},
      {"_SelectionHandler", &IID__SelectionHandler, S_OK},
      {"IProvideClassInfo", &IID_IProvideClassInfo, S_OK},
      {"ISupportErrorInfo", &IID_ISupportErrorInfo, S_OK},
      {"IProvideClassInfo2 (not implemented)", &IID_IProvideClassInfo2, E_NOINTERFACE},
      {"IConnectionPointContainer", &IID_IConnectionPointContainer, E_NOINTERFACE},
      {"_VarDeskUI", &IID__VarDeskUI, E_NOINTERFACE},
  };
  for (const Query& q : queries) {
    SCOPED_TRACE(q.name);
    win32::ComPtr<IUnknown> answer;
    EXPECT_EQ(object->QueryInterface(*q.iid, answer.PutVoid()), q.hr);
    if (FAILED(q.hr)) {
      EXPECT_FALSE(answer);
      continue;
    }
    ASSERT_TRUE(answer);
    win32::ComPtr<IUnknown> identity;
    ASSERT_EQ(answer->QueryInterface(IID_IUnknown, identity.PutVoid()), S_OK);
    EXPECT_EQ(identity.Get(), object.Get()) << "every interface leads back to the same IUnknown";
  }
  EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);

  object = nullptr;
  EXPECT_EQ(win32::LiveModuleObjects(), before) << "the last Release frees the object and its module lock";
}

}  // namespace
}  // namespace vd::testhost
