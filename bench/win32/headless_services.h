#pragma once
// The platform as a headless timing program needs it: no registry keys and no
// files.
#include <span>
#include <string_view>

#include "platform/services.h"

namespace vd::bench {

using vd::automation::StringView;

class NoRegistry final : public vd::platform::Registry {
 public:
  vd::platform::RegOpenResult OpenKey(vd::platform::RegHandle, std::string_view, uint32_t, uint32_t) override {
    return {vd::platform::reg::kErrorFileNotFound, 0};
  }
  vd::platform::RegQueryResult QueryValue(vd::platform::RegHandle, std::string_view, std::span<char>) override {
    return {vd::platform::reg::kErrorFileNotFound, 0, 0};
  }
  int32_t CloseKey(vd::platform::RegHandle) override { return vd::platform::reg::kErrorSuccess; }
};

class NoFiles final : public vd::platform::FileService {
 public:
  [[nodiscard]] vd::platform::FileReadResult ReadAll(StringView) const override { return {53, {}}; }
  [[nodiscard]] bool Exists(StringView) const override { return false; }
};

}  // namespace vd::bench
