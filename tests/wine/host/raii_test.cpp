// The RAII wrappers release exactly what they own.
#include <gtest/gtest.h>

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/reg_key.h"
#include "com/unique_variant.h"

namespace vd::testhost {
namespace {

using win32::Bstr;
using win32::ComPtr;

// An object that only counts its references.
class Counted final : public IDispatch {
 public:
  ULONG refs = 1;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch)) {
      *out = this;
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs; }
  ULONG STDMETHODCALLTYPE Release() override { return --refs; }  // lives on the stack
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
};

TEST(ComPtrTest, CopyAddsAReferenceAndDestructionReleasesIt) {
  Counted object;
  {
    ComPtr<IDispatch> first(&object);
    EXPECT_EQ(object.refs, 2u);
    ComPtr<IDispatch> second = first;
    EXPECT_EQ(object.refs, 3u);
    ComPtr<IDispatch> moved = std::move(second);
    EXPECT_EQ(object.refs, 3u);
    EXPECT_FALSE(second);
  }
  EXPECT_EQ(object.refs, 1u);
}

TEST(BstrTest, KeepsEmbeddedNulsAndCharactersBeyondTheBasicPlane) {
  const automation::String text(u"a\0b \U0001F600 \u00E9", 8);
  Bstr b(text);
  EXPECT_EQ(b.Length(), text.size());
  EXPECT_EQ(b.ToString(), text);
  EXPECT_EQ(win32::ToString(nullptr), u"");
  EXPECT_EQ(Bstr(u"").ToString(), u"");
}

TEST(UniqueVariantTest, ClearingReleasesTheObjectItHolds) {
  Counted object;
  {
    win32::UniqueVariant v;
    object.AddRef();
    v.Get()->vt = VT_DISPATCH;
    v.Get()->pdispVal = &object;
    EXPECT_EQ(object.refs, 2u);
    win32::UniqueVariant moved = std::move(v);
    EXPECT_EQ(v.Type(), VT_EMPTY);
    EXPECT_EQ(object.refs, 2u);
  }
  EXPECT_EQ(object.refs, 1u);
}

TEST(RegKeyTest, WritesReadsAndRemovesATree) {
  const std::wstring path = L"Software\\VarDeskGUI-host-tests\\inner";
  {
    win32::RegKey key = win32::RegKey::Create(HKEY_CURRENT_USER, path);
    key.SetString(L"", L"default");
    key.SetString(L"Named", L"value with blanks ");
  }
  win32::RegKey read = win32::RegKey::OpenForRead(HKEY_CURRENT_USER, path);
  ASSERT_TRUE(read);
  std::wstring value;
  ASSERT_TRUE(read.GetString(L"Named", value));
  EXPECT_EQ(value, L"value with blanks ");
  ASSERT_TRUE(read.GetString(L"", value));
  EXPECT_EQ(value, L"default");
  EXPECT_FALSE(read.GetString(L"Missing", value));
  read = win32::RegKey();
  win32::DeleteKeyTree(HKEY_CURRENT_USER, L"Software\\VarDeskGUI-host-tests");
  EXPECT_FALSE(win32::RegKey::OpenForRead(HKEY_CURRENT_USER, L"Software\\VarDeskGUI-host-tests"));
  EXPECT_NO_THROW(win32::DeleteKeyTree(HKEY_CURRENT_USER, L"Software\\VarDeskGUI-host-tests"));
}

}  // namespace
}  // namespace vd::testhost
