#pragma once
// An in-memory registry that records every call it receives. Keys are found by
// hive and path, values by name, both ignoring ASCII case as the registry does.
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace vd::platform::testing {

class FakeRegistry final : public Registry {
 public:
  struct StoredValue {
    uint32_t type = reg::kRegSz;
    std::string bytes;
  };
  struct OpenCall {
    RegHandle parent;
    std::string subKey;
    uint32_t options;
    uint32_t access;
  };
  struct QueryCall {
    RegHandle key;
    std::string valueName;
    size_t bufferSize;
    bool bufferAllNul;  // whether every byte offered was NUL on entry
  };

  // Creates the key (empty) when it does not exist.
  void AddKey(RegHandle hive, const std::string& path);
  void SetValue(RegHandle hive, const std::string& path, const std::string& name, StoredValue value);

  RegOpenResult OpenKey(RegHandle parent, std::string_view subKey, uint32_t options, uint32_t access) override;
  RegQueryResult QueryValue(RegHandle key, std::string_view valueName, std::span<char> buffer) override;
  int32_t CloseKey(RegHandle key) override;

  [[nodiscard]] const std::vector<OpenCall>& Opens() const { return opens_; }
  [[nodiscard]] const std::vector<QueryCall>& Queries() const { return queries_; }
  [[nodiscard]] const std::vector<RegHandle>& Closes() const { return closes_; }
  [[nodiscard]] size_t CallCount() const { return opens_.size() + queries_.size() + closes_.size(); }
  // Keys opened and not yet closed.
  [[nodiscard]] size_t OpenKeyCount() const { return handles_.size(); }

  // Handles the fake gives out start here, far from 0 and from the hives.
  static constexpr RegHandle kFirstHandle = 0x1000;

 private:
  using Values = std::map<std::string, StoredValue>;
  static std::string Fold(std::string_view text);

  std::map<std::pair<RegHandle, std::string>, Values> keys_;
  std::map<RegHandle, const Values*> handles_;
  RegHandle nextHandle_ = kFirstHandle;
  std::vector<OpenCall> opens_;
  std::vector<QueryCall> queries_;
  std::vector<RegHandle> closes_;
};

}  // namespace vd::platform::testing
