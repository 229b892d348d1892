// The one handle owner: every kind releases what it holds exactly once, when
// it goes, is reset or hands its storage out again, and never after a move or
// a Release.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "com/bstr.h"
#include "com/safe_array.h"
#include "com/unique_handle.h"
#include "com/unique_variant.h"

namespace vd::testhost {
namespace {

// Counts the Releases it gets; lives on the test's stack.
class Counted final : public IUnknown {
 public:
  ULONG refs = 1;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    *out = IsEqualIID(iid, IID_IUnknown) ? this : nullptr;
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs; }
  ULONG STDMETHODCALLTYPE Release() override { return --refs; }
};

// One reference of the counted object, owned by each kind of owner.
VARIANT HoldingVariant(Counted& object) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_UNKNOWN;
  value.punkVal = &object;
  object.AddRef();
  return value;
}

SAFEARRAY* HoldingArray(Counted& object) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_UNKNOWN, 0, 1);
  LONG at = 0;
  SafeArrayPutElement(array, &at, &object);  // adds its own reference
  return array;
}

struct OwnerCase {
  std::string name;
  // Runs what the case does with an owner of one reference of object.
  std::function<void(Counted& object)> run;
  ULONG refsAfter;  // 1: the owner let the reference go; 2: it was handed out
};

class OwnerTest : public ::testing::TestWithParam<OwnerCase> {};

TEST_P(OwnerTest, ReleasesExactlyWhatItOwns) {
  Counted object;
  GetParam().run(object);
  EXPECT_EQ(object.refs, GetParam().refsAfter);
}

const OwnerCase kCases[] = {
    {"VariantGoes", [](Counted& o) { const auto v = win32::UniqueVariant::Attach(HoldingVariant(o)); }, 1},
    {"VariantPutEmptiesFirst",
     [](Counted& o) {
       auto v = win32::UniqueVariant::Attach(HoldingVariant(o));
       EXPECT_EQ(v.Put()->vt, VT_EMPTY);
       EXPECT_FALSE(v.Valid());
     },
     1},
    {"VariantMovedReleasesOnce",
     [](Counted& o) {
       auto from = win32::UniqueVariant::Attach(HoldingVariant(o));
       win32::UniqueVariant to;
       to = std::move(from);
       EXPECT_EQ(to.Type(), VT_UNKNOWN);
     },
     1},
    {"VariantDetachedStaysHeld",
     [](Counted& o) {
       auto v = win32::UniqueVariant::Attach(HoldingVariant(o));
       VARIANT out = v.Detach();
       EXPECT_EQ(out.punkVal, &o);
     },
     2},
    {"ArrayGoes", [](Counted& o) { const win32::SafeArray a(HoldingArray(o)); }, 1},
    {"ArrayResetToAnother",
     [](Counted& o) {
       win32::SafeArray a(HoldingArray(o));
       a.Reset(SafeArrayCreateVector(VT_I4, 0, 3));
       EXPECT_EQ(o.refs, 1u);
     },
     1},
    {"ArrayDetachedStaysHeld",
     [](Counted& o) {
       win32::SafeArray a(HoldingArray(o));
       SAFEARRAY* out = a.Detach();
       EXPECT_FALSE(a.Valid());
       EXPECT_EQ(o.refs, 2u);
       SafeArrayDestroy(out);
     },
     1},
};

INSTANTIATE_TEST_SUITE_P(Owners, OwnerTest, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<OwnerCase>& param) { return param.param.name; });

TEST(HandleOwnerTest, AnEventIsClosedWhenItsOwnerGoesAndNotAfterRelease) {
  HANDLE seen = nullptr;
  {
    const win32::KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    ASSERT_TRUE(event.Valid());
    seen = event.Get();
    DWORD flags = 0;
    EXPECT_TRUE(GetHandleInformation(seen, &flags));
  }
  DWORD flags = 0;
  EXPECT_FALSE(GetHandleInformation(seen, &flags));

  win32::KernelHandle kept(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  const HANDLE released = kept.Release();
  EXPECT_FALSE(kept.Valid());
  EXPECT_TRUE(GetHandleInformation(released, &flags));
  CloseHandle(released);
}

TEST(HandleOwnerTest, AWindowIsDestroyedWithItsOwnerAndAMovedOneOnlyOnce) {
  win32::WindowHandle first(
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr));
  ASSERT_TRUE(first.Valid());
  const HWND window = first.Get();
  {
    const win32::WindowHandle second(std::move(first));
    EXPECT_FALSE(first.Valid());  // NOLINT(bugprone-use-after-move): a moved owner is empty
    EXPECT_TRUE(IsWindow(window));
  }
  EXPECT_FALSE(IsWindow(window));
}

TEST(HandleOwnerTest, ABstrOwnerKeepsTheTextUntilItGoes) {
  win32::Bstr text(u"Alarms.custom");
  EXPECT_EQ(text.Length(), 13u);
  BSTR* slot = text.Put();
  EXPECT_EQ(*slot, nullptr);
  *slot = SysAllocString(L"x");
  EXPECT_EQ(text.ToString(), u"x");
}

}  // namespace
}  // namespace vd::testhost
