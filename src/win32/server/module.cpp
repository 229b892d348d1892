#include "server/module.h"

#include <atomic>
#include <mutex>

#include "convert/error_convert.h"

namespace vd::win32 {
namespace {

std::atomic<long> g_objects{0};
std::atomic<long> g_locks{0};

struct TypeLibCache {
  std::mutex mutex;
  ComPtr<ITypeLib> library;
};

TypeLibCache& Cache() {
  static TypeLibCache* cache = new TypeLibCache;  // outlives static destruction: COM may call late
  return *cache;
}

}  // namespace

ModuleReference::ModuleReference() { ++g_objects; }
ModuleReference::~ModuleReference() { --g_objects; }

void LockModule() { ++g_locks; }
void UnlockModule() { --g_locks; }
bool ModuleCanUnload() { return g_objects.load() == 0 && g_locks.load() == 0; }
long LiveModuleObjects() { return g_objects.load(); }

HMODULE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&g_objects), &module);
  return module;
}

std::wstring ThisModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    DWORD length = GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

ComPtr<ITypeLib> ModuleTypeLib() {
  TypeLibCache& cache = Cache();
  std::lock_guard lock(cache.mutex);
  if (!cache.library) {
    HRESULT hr = LoadTypeLibEx(ThisModulePath().c_str(), REGKIND_NONE, cache.library.Put());
    if (FAILED(hr)) automation::Raise(static_cast<int32_t>(hr), u"The type library of the module cannot be loaded");
  }
  return cache.library;
}

ComPtr<ITypeInfo> ModuleTypeInfo(REFGUID guid) {
  ComPtr<ITypeInfo> info;
  HRESULT hr = ModuleTypeLib()->GetTypeInfoOfGuid(guid, info.Put());
  if (FAILED(hr)) automation::Raise(static_cast<int32_t>(hr), u"The type library has no such type");
  return info;
}

void ReleaseModuleTypeLib() {
  TypeLibCache& cache = Cache();
  std::lock_guard lock(cache.mutex);
  cache.library.Reset();
}

}  // namespace vd::win32
