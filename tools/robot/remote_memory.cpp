#include "remote_memory.h"

#include <vector>

#include "views/wide_text.h"
#include "views/win_handles.h"
#include "window_query.h"

namespace vd::win32::robot {
namespace {

constexpr int kTextCapacity = 1024;

// A block of memory in another process, freed with the object.
class RemoteBlock {
 public:
  RemoteBlock(HANDLE process, size_t size)
      : process_(process), address_(VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {}
  RemoteBlock(const RemoteBlock&) = delete;
  RemoteBlock& operator=(const RemoteBlock&) = delete;
  ~RemoteBlock() {
    if (address_ != nullptr) VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
  }
  [[nodiscard]] char* Address() const { return static_cast<char*>(address_); }

 private:
  HANDLE process_;
  void* address_;
};

// The process of a window, opened to lend it memory.
vd::win32::views::KernelHandle OpenOwner(HWND window) {
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  return vd::win32::views::KernelHandle(
      OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId));
}

std::optional<vd::automation::String> ReadText(HANDLE process, const void* address) {
  std::vector<wchar_t> text(kTextCapacity + 1, L'\0');
  if (!ReadProcessMemory(process, address, text.data(), kTextCapacity * sizeof(wchar_t), nullptr)) return std::nullopt;
  return vd::win32::views::FromWide(text.data());
}

}  // namespace

std::optional<vd::automation::String> RemoteNodeText(HWND tree, HTREEITEM item) {
  const vd::win32::views::KernelHandle process = OpenOwner(tree);
  if (!process) return std::nullopt;
  const RemoteBlock block(process.Get(), sizeof(TVITEMW) + kTextCapacity * sizeof(wchar_t));
  if (block.Address() == nullptr) return std::nullopt;

  TVITEMW query{};
  query.mask = TVIF_TEXT;
  query.hItem = item;
  query.pszText = reinterpret_cast<LPWSTR>(block.Address() + sizeof(TVITEMW));
  query.cchTextMax = kTextCapacity;
  LRESULT answered = 0;
  if (!WriteProcessMemory(process.Get(), block.Address(), &query, sizeof(query), nullptr) ||
      !Ask(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(block.Address()), answered) || answered == 0)
    return std::nullopt;
  return ReadText(process.Get(), query.pszText);
}

std::optional<vd::automation::String> RemoteStatusText(HWND statusBar) {
  const vd::win32::views::KernelHandle process = OpenOwner(statusBar);
  if (!process) return std::nullopt;
  const RemoteBlock block(process.Get(), (kTextCapacity + 1) * sizeof(wchar_t));
  if (block.Address() == nullptr) return std::nullopt;
  LRESULT length = 0;
  // A bar in simple mode answers with its one text for any part.
  if (!Ask(statusBar, SB_GETTEXTLENGTHW, 0, 0, length) || LOWORD(length) > kTextCapacity) return std::nullopt;
  LRESULT answered = 0;
  if (!Ask(statusBar, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(block.Address()), answered)) return std::nullopt;
  return ReadText(process.Get(), block.Address());
}

}  // namespace vd::win32::robot
