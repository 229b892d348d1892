#pragma once
// Test-only: "VdTestBridge.Harness" lets a script drive the component's
// adapters over its own objects (display classes, communication class) and
// create VarDeskUI objects whose core raises the events at once.
#include <windows.h>

#include <unknwn.h>

namespace vd::testbridge {

HRESULT CreateHarness(REFIID iid, void** out);

}  // namespace vd::testbridge
