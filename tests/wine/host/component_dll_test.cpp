// The component DLL as a host loads it without registration: through
// DllGetClassObject, with DllCanUnloadNow telling when it may go.
#include <gtest/gtest.h>

#include <string>

#include "VarDeskGUI.h"
#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/library_handle.h"

namespace vd::testhost {
namespace {

using win32::Bstr;
using win32::ComPtr;

using GetClassObjectFunction = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
using CanUnloadNowFunction = HRESULT(WINAPI*)();

// The component next to this program (both are built into bin/).
std::wstring ComponentPath() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L"\\/") + 1) + L"VarDeskGUI.dll";
}

class ComponentDllTest : public testing::Test {
 protected:
  void SetUp() override {
    library_ = win32::LibraryHandle(ComponentPath());
    ASSERT_TRUE(library_) << "VarDeskGUI.dll beside the test host";
    getClassObject_ = library_.Export<GetClassObjectFunction>("DllGetClassObject");
    canUnloadNow_ = library_.Export<CanUnloadNowFunction>("DllCanUnloadNow");
    ASSERT_TRUE(getClassObject_ && canUnloadNow_);
  }
  ComPtr<IClassFactory> Factory(REFCLSID clsid) {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(getClassObject_(clsid, IID_IClassFactory, factory.PutVoid()), S_OK);
    return factory;
  }
  template <class I>
  ComPtr<I> Create(REFCLSID clsid) {
    ComPtr<I> object;
    EXPECT_EQ(Factory(clsid)->CreateInstance(nullptr, __uuidof(I), object.PutVoid()), S_OK);
    return object;
  }

  win32::LibraryHandle library_;
  GetClassObjectFunction getClassObject_ = nullptr;
  CanUnloadNowFunction canUnloadNow_ = nullptr;
};

TEST_F(ComponentDllTest, MayUnloadOnlyWhenNoObjectAndNoLockIsAlive) {
  EXPECT_EQ(canUnloadNow_(), S_OK);
  ComPtr<IClassFactory> factory = Factory(CLSID_VarDeskUI);
  EXPECT_EQ(canUnloadNow_(), S_FALSE) << "a factory is alive";
  ComPtr<_VarDeskUI> ui;
  ASSERT_EQ(factory->CreateInstance(nullptr, IID__VarDeskUI, ui.PutVoid()), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  factory.Reset();
  EXPECT_EQ(canUnloadNow_(), S_FALSE) << "an object and a lock are alive";
  ui.Reset();
  EXPECT_EQ(canUnloadNow_(), S_FALSE) << "a lock is alive";
  Factory(CLSID_SelectionHandler)->LockServer(FALSE);
  EXPECT_EQ(canUnloadNow_(), S_OK);
}

TEST_F(ComponentDllTest, ConnectionPointsAndEnumeratorsKeepTheModuleAlive) {
  ComPtr<IConnectionPoint> point;
  {
    auto ui = Create<_VarDeskUI>(CLSID_VarDeskUI);
    ASSERT_EQ(ui.As<IConnectionPointContainer>()->FindConnectionPoint(DIID___VarDeskUI, point.Put()), S_OK);
  }
  EXPECT_EQ(canUnloadNow_(), S_FALSE) << "the point holds its object";
  point.Reset();
  EXPECT_EQ(canUnloadNow_(), S_OK);
}

TEST_F(ComponentDllTest, UnknownClassesAreNotAvailable) {
  ComPtr<IClassFactory> factory;
  EXPECT_EQ(getClassObject_(IID_IDispatch, IID_IClassFactory, factory.PutVoid()), CLASS_E_CLASSNOTAVAILABLE);
  ComPtr<IUnknown> outer = Create<IUnknown>(CLSID_SelectionHandler);
  ComPtr<IUnknown> aggregated;
  EXPECT_EQ(Factory(CLSID_VarDeskUI)->CreateInstance(outer.Get(), IID_IUnknown, aggregated.PutVoid()),
            CLASS_E_NOAGGREGATION);
}

// The members in their order, by DISPID and name, as the type library says.
TEST_F(ComponentDllTest, TheTypeLibraryListsTheMembersInTheirOrder) {
  auto ui = Create<IDispatch>(CLSID_VarDeskUI);
  ComPtr<ITypeInfo> type;
  ASSERT_EQ(ui->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Put()), S_OK);
  struct Expected {
    const char16_t* name;
    INVOKEKIND kind;
  };
  const Expected expected[] = {
      {u"IsModified", INVOKE_FUNC},           {u"EditDataSources", INVOKE_FUNC},
      {u"SelectDataVar", INVOKE_FUNC},        {u"HelpFile", INVOKE_PROPERTYGET},
      {u"HelpFile", INVOKE_PROPERTYPUT},      {u"Communication", INVOKE_PROPERTYPUTREF},
      {u"Communication", INVOKE_PROPERTYPUT}, {u"Communication", INVOKE_PROPERTYGET},
  };
  std::vector<std::pair<automation::String, INVOKEKIND>> own;
  for (UINT i = 0;; ++i) {
    FUNCDESC* func = nullptr;
    if (FAILED(type->GetFuncDesc(i, &func))) break;
    Bstr name;
    type->GetDocumentation(func->memid, name.Put(), nullptr, nullptr, nullptr);
    if (func->memid > 0 && func->memid < 0x60000000) own.emplace_back(name.ToString(), func->invkind);
    type->ReleaseFuncDesc(func);
  }
  ASSERT_EQ(own.size(), std::size(expected));
  for (size_t i = 0; i < own.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(own[i].first, expected[i].name);
    EXPECT_EQ(own[i].second, expected[i].kind);
  }
}

TEST_F(ComponentDllTest, TheEventsTakeOneObjectByReference) {
  auto ui = Create<IUnknown>(CLSID_VarDeskUI);
  ComPtr<ITypeInfo> coclass;
  ASSERT_EQ(ui.As<IProvideClassInfo>()->GetClassInfo(coclass.Put()), S_OK);
  ComPtr<ITypeLib> library;
  UINT index = 0;
  ASSERT_EQ(coclass->GetContainingTypeLib(library.Put(), &index), S_OK);
  ComPtr<ITypeInfo> events;
  ASSERT_EQ(library->GetTypeInfoOfGuid(DIID___VarDeskUI, events.Put()), S_OK);
  const std::pair<DISPID, const char16_t*> expected[] = {{1, u"EditCustomDs"}, {2, u"EditCustomDsv"}};
  for (const auto& [id, expectedName] : expected) {
    SCOPED_TRACE(id);
    BSTR names[2] = {};
    UINT count = 0;
    ASSERT_EQ(events->GetNames(id, names, 2, &count), S_OK);
    ASSERT_EQ(count, 2u) << "the event and its one parameter";
    EXPECT_EQ(win32::ToString(names[0]), expectedName);
    SysFreeString(names[0]);
    SysFreeString(names[1]);
  }
  FUNCDESC* func = nullptr;
  ASSERT_EQ(events->GetFuncDesc(0, &func), S_OK);
  ASSERT_EQ(func->cParams, 1);
  const ELEMDESC& param = func->lprgelemdescParam[0];
  EXPECT_EQ(param.tdesc.vt, VT_PTR);
  EXPECT_EQ(param.tdesc.lptdesc->vt, VT_DISPATCH);
  EXPECT_TRUE(param.paramdesc.wParamFlags & PARAMFLAG_FIN);
  EXPECT_TRUE(param.paramdesc.wParamFlags & PARAMFLAG_FOUT);
  events->ReleaseFuncDesc(func);
}

}  // namespace
}  // namespace vd::testhost
