// The system's C++ objects as IDispatch objects with the operations' names:
// what a script sees of them is exposed.vbs; here, the module's count of live
// objects and the references an out argument is written through.
#include <gtest/gtest.h>

#include "com/bstr.h"
#include "convert/variant_convert.h"
#include "expose/exposed_object.h"
#include "expose/toolkit_exposers.h"
#include "plant.h"
#include "server/module.h"
#include "vd/sample/simulated_scada.h"

namespace vd::testhost {
namespace {

using automation::Variant;
using win32::ComPtr;
using win32::UniqueVariant;

HRESULT IdOf(IDispatch* object, const wchar_t* name, DISPID& id) {
  std::wstring copy(name);
  LPOLESTR names[] = {copy.data()};
  return object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
}

// Calls a member with arguments given last-first, as DISPPARAMS wants them;
// the exception's description, if any, goes to description.
HRESULT Call(IDispatch* object, const wchar_t* name, std::vector<VARIANT> argsLastFirst, UniqueVariant& result,
             SCODE& scode, automation::String& description) {
  DISPID id = DISPID_UNKNOWN;
  EXPECT_EQ(IdOf(object, name, id), S_OK);
  DISPPARAMS params{argsLastFirst.data(), nullptr, static_cast<UINT>(argsLastFirst.size()), 0};
  EXCEPINFO info{};
  const HRESULT hr =
      object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, result.Put(), &info, nullptr);
  scode = info.scode;
  description = win32::ToString(info.bstrDescription);
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrSource);
  return hr;
}

TEST(ExposerTest, OneObjectKeepsOneDispatchWhileItLives) {
  auto plant = MakePlant();
  const long before = win32::LiveModuleObjects();
  ComPtr<IDispatch> first = win32::ExposeObject(plant);
  ComPtr<IDispatch> second = win32::ExposeObject(plant);
  EXPECT_EQ(first.Get(), second.Get());
  EXPECT_EQ(win32::LiveModuleObjects(), before + 1);
  EXPECT_EQ(win32::FindExposed(first.Get())->Target().get(), plant.get());
  first.Reset();
  second.Reset();
  EXPECT_EQ(win32::LiveModuleObjects(), before);
}

TEST(ExposerTest, OutArgumentsAreWrittenThroughTheirReferences) {
  auto scada = std::make_shared<sample::SimulatedScada>();
  scada->AddApplication({1, u"Plant", u"C:\\Plant"});
  scada->SetAnswer(u"#return 1", Variant(u"one"));
  const ComPtr<IDispatch> exposed = win32::ExposeObject(scada);
  UniqueVariant result;
  SCODE scode = 0;
  automation::String description;
  const UniqueVariant request = win32::ToVariant(Variant(u"#return 1"));

  UniqueVariant out;
  VARIANT byRef;
  byRef.vt = VT_BYREF | VT_VARIANT;
  byRef.pvarVal = out.Get();
  ASSERT_EQ(Call(exposed.Get(), L"ExecuteKorl", {byRef, request.Ref()}, result, scode, description), S_OK);
  EXPECT_TRUE(win32::FromVariant(out.Ref()) == Variant(u"one"));

  win32::Bstr text;
  VARIANT byRefText;
  byRefText.vt = VT_BYREF | VT_BSTR;
  byRefText.pbstrVal = text.Put();
  ASSERT_EQ(Call(exposed.Get(), L"ExecuteKorl", {byRefText, request.Ref()}, result, scode, description), S_OK);
  EXPECT_EQ(text.ToString(), u"one") << "a typed reference";

  const UniqueVariant byValue = win32::ToVariant(Variant(u"before"));
  ASSERT_EQ(Call(exposed.Get(), L"ExecuteKorl", {byValue.Ref(), request.Ref()}, result, scode, description), S_OK);
  EXPECT_TRUE(win32::FromVariant(byValue.Ref()) == Variant(u"before")) << "a value cannot be written";
}

}  // namespace
}  // namespace vd::testhost
