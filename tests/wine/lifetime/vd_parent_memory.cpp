// Exits with the private memory, in KiB, of the process that started it
// (GetProcessMemoryInfo; Wine fills PagefileUsage, not PrivateUsage), or 0
// when it cannot be read. A script measures itself with it: WScript.Shell's
// Run("vd_parent_memory.exe", 0, True) returns that exit code.
#include <windows.h>

#include <psapi.h>
#include <tlhelp32.h>

#include "com/unique_handle.h"

namespace {

struct SnapshotTraits {
  static HANDLE Invalid() { return INVALID_HANDLE_VALUE; }
  static void Close(HANDLE handle) { CloseHandle(handle); }
};

DWORD ParentProcessId() {
  const vd::win32::UniqueHandle<HANDLE, SnapshotTraits> snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  if (!snapshot) return 0;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = Process32FirstW(snapshot.Get(), &entry); more; more = Process32NextW(snapshot.Get(), &entry))
    if (entry.th32ProcessID == GetCurrentProcessId()) return entry.th32ParentProcessID;
  return 0;
}

}  // namespace

int wmain() {
  const DWORD parent = ParentProcessId();
  if (parent == 0) return 0;
  const vd::win32::KernelHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, parent));
  if (!process) return 0;
  PROCESS_MEMORY_COUNTERS_EX memory{};
  memory.cb = sizeof memory;
  if (!GetProcessMemoryInfo(process.Get(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory), sizeof memory))
    return 0;
  const SIZE_T bytes = memory.PrivateUsage != 0 ? memory.PrivateUsage : memory.PagefileUsage;
  return static_cast<int>(bytes / 1024);
}
