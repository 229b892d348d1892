// The object base: QueryInterface answers from the object's table of
// interfaces with one identity, and every live object keeps the module loaded.
#include <gtest/gtest.h>

#include "VarDeskGUI.h"
#include "com/com_ptr.h"
#include "server/module.h"
#include "server/selection_handler_object.h"

namespace vd::testhost {
namespace {

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
