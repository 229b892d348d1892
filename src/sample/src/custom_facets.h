#pragma once
// The parameter-list (custom) interfaces of custom data sources and their
// variables. Each facet keeps its model object alive, never the other way
// round, so handing one out creates no cycle.
#include <memory>

#include "vd/sample/memory_toolkit.h"

namespace vd::sample::detail {

class CustomDsFacet final : public toolkit::CustomDs {
 public:
  explicit CustomDsFacet(std::shared_ptr<MemoryDs> ds) : ds_(std::move(ds)) {}
  toolkit::ParamListRef GetParams() override { return ds_->Params(); }

 private:
  std::shared_ptr<MemoryDs> ds_;
};

class CustomDsvFacet final : public toolkit::CustomDsv {
 public:
  explicit CustomDsvFacet(std::shared_ptr<MemoryDsv> dsv) : dsv_(std::move(dsv)) {}
  toolkit::ParamListRef GetParams() override { return dsv_->Params(); }
  int32_t GetDsvAccess() override { return dsv_->Access(); }

 private:
  std::shared_ptr<MemoryDsv> dsv_;
};

}  // namespace vd::sample::detail
