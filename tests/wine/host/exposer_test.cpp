// The system's C++ objects as IDispatch objects with the operations' names.
#include <gtest/gtest.h>

#include "com/bstr.h"
#include "convert/variant_convert.h"
#include "expose/exposed_object.h"
#include "expose/toolkit_exposers.h"
#include "memory_toolkit.h"
#include "server/module.h"

namespace vd::testhost {
namespace {

using win32::ComPtr;
using win32::UniqueVariant;

DISPID IdOf(IDispatch* object, const wchar_t* name) {
  std::wstring copy(name);
  LPOLESTR names[] = {copy.data()};
  DISPID id = DISPID_UNKNOWN;
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK) << "name";
  return id;
}

// Calls a member with arguments given last-first, as DISPPARAMS wants them.
HRESULT CallRaw(IDispatch* object, const wchar_t* name, std::vector<VARIANT> argsLastFirst, UniqueVariant& result,
                EXCEPINFO& info) {
  DISPPARAMS params{argsLastFirst.data(), nullptr, static_cast<UINT>(argsLastFirst.size()), 0};
  return object->Invoke(IdOf(object, name), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, result.Put(),
                        &info, nullptr);
}

TEST(ExposerTest, NamesAreFoundIgnoringCase) {
  auto display = MakePlantDisplay();
  ComPtr<IDispatch> ds = win32::ExposeObject(display->list->items[0]);
  EXPECT_EQ(IdOf(ds.Get(), L"GetDsName"), IdOf(ds.Get(), L"getdsname"));
  std::wstring unknown = L"NoSuchMember";
  LPOLESTR names[] = {unknown.data()};
  DISPID id = 0;
  EXPECT_EQ(ds->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
}

TEST(ExposerTest, CallsReachTheObjectAndResultsComeBack) {
  auto display = MakePlantDisplay();
  ComPtr<IDispatch> ds = win32::ExposeObject(display->list->items[0]);
  UniqueVariant result;
  EXCEPINFO info{};
  UniqueVariant name = win32::ToVariant(automation::Variant(u"Renamed"));
  ASSERT_EQ(CallRaw(ds.Get(), L"SetDsName", {name.Ref()}, result, info), S_OK);
  EXPECT_EQ(display->list->items[0]->name, u"Renamed");
  ASSERT_EQ(CallRaw(ds.Get(), L"GetDsName", {}, result, info), S_OK);
  EXPECT_TRUE(win32::FromVariant(result.Ref()) == automation::Variant(u"Renamed"));
}

TEST(ExposerTest, AnErrorOfTheObjectBecomesAnException) {
  auto display = MakePlantDisplay();
  display->list->items[0]->failReading = true;
  ComPtr<IDispatch> ds = win32::ExposeObject(display->list->items[0]);
  UniqueVariant result;
  EXCEPINFO info{};
  ASSERT_EQ(CallRaw(ds.Get(), L"GetDsName", {}, result, info), DISP_E_EXCEPTION);
  EXPECT_EQ(info.scode, static_cast<SCODE>(0x800A04D2));
  EXPECT_EQ(win32::ToString(info.bstrDescription), u"The data source cannot be read");
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrSource);
}

TEST(ExposerTest, OnlyCustomObjectsAnswerTheCustomMembers) {
  auto display = MakePlantDisplay();
  struct Case {
    automation::ObjectRef object;
    const wchar_t* member;
    bool answers;
  };
  const Case cases[] = {
      {display->list->items[0], L"GetParams", false},
      {display->list->items[1], L"GetParams", true},
      {display->list->items[0]->vars->items[0], L"GetParams", false},
      {display->list->items[0]->vars->items[0], L"GetDsvAccess", false},
      {display->list->items[1]->vars->items[0], L"GetParams", true},
      {display->list->items[1]->vars->items[0], L"GetDsvAccess", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << (c.answers ? "custom " : "plain ")
                                    << std::string(c.member, c.member + wcslen(c.member)));
    ComPtr<IDispatch> exposed = win32::ExposeObject(c.object);
    std::wstring name(c.member);
    LPOLESTR names[] = {name.data()};
    DISPID id = 0;
    EXPECT_EQ(exposed->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id),
              c.answers ? S_OK : DISP_E_UNKNOWNNAME);
  }
  ComPtr<IDispatch> custom = win32::ExposeObject(display->list->items[1]);
  UniqueVariant result;
  EXCEPINFO none{};
  ASSERT_EQ(CallRaw(custom.Get(), L"GetParams", {}, result, none), S_OK);
  EXPECT_EQ(result.Type(), VT_DISPATCH);
}

TEST(ExposerTest, OneObjectKeepsOneDispatchWhileItLives) {
  auto display = MakePlantDisplay();
  const long before = win32::LiveModuleObjects();
  ComPtr<IDispatch> first = win32::ExposeObject(display);
  ComPtr<IDispatch> second = win32::ExposeObject(display);
  EXPECT_EQ(first.Get(), second.Get());
  EXPECT_EQ(win32::LiveModuleObjects(), before + 1);
  EXPECT_EQ(win32::FindExposed(first.Get())->Target().get(), display.get());
  first.Reset();
  second.Reset();
  EXPECT_EQ(win32::LiveModuleObjects(), before);
}

TEST(ExposerTest, OutArgumentsAreWrittenThroughTheirReferences) {
  auto comm = std::make_shared<MemCommunication>();
  ComPtr<IDispatch> exposed = win32::ExposeObject(comm);
  UniqueVariant result;
  EXCEPINFO info{};
  // ExecuteKorl(request, result) with result as VARIANT by reference.
  UniqueVariant request = win32::ToVariant(automation::Variant(u"#return 1"));
  UniqueVariant out;
  VARIANT byRef;
  byRef.vt = VT_BYREF | VT_VARIANT;
  byRef.pvarVal = out.Get();
  ASSERT_EQ(CallRaw(exposed.Get(), L"ExecuteKorl", {byRef, request.Ref()}, result, info), S_OK);
  EXPECT_TRUE(win32::FromVariant(out.Ref()) == automation::Variant(u"ran #return 1"));

  // ValidateItem(itemId, value) with value as a typed Double reference.
  UniqueVariant item = win32::ToVariant(automation::Variant(u"Plant.Tank1.Level"));
  double value = 0;
  VARIANT byRefDouble;
  byRefDouble.vt = VT_BYREF | VT_R8;
  byRefDouble.pdblVal = &value;
  ASSERT_EQ(CallRaw(exposed.Get(), L"ValidateItem", {byRefDouble, item.Ref()}, result, info), S_OK);
  EXPECT_EQ(value, 3.5);

  // A by-value argument cannot be written and stays as it was.
  UniqueVariant byValue = win32::ToVariant(automation::Variant(u"before"));
  ASSERT_EQ(CallRaw(exposed.Get(), L"ExecuteKorl", {byValue.Ref(), request.Ref()}, result, info), S_OK);
  EXPECT_TRUE(win32::FromVariant(byValue.Ref()) == automation::Variant(u"before"));
}

TEST(ExposerTest, MissingArgumentsAreTheWrongArgumentCount) {
  auto display = MakePlantDisplay();
  ComPtr<IDispatch> ds = win32::ExposeObject(display->list->items[0]);
  UniqueVariant result;
  EXCEPINFO info{};
  ASSERT_EQ(CallRaw(ds.Get(), L"SetDsName", {}, result, info), DISP_E_EXCEPTION);
  EXPECT_EQ(info.scode, static_cast<SCODE>(0x800A01C2)) << "450";
  EXPECT_EQ(display->list->items[0]->name, u"Tanks");
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrSource);
}

}  // namespace
}  // namespace vd::testhost
