#pragma once
// Test-only: a small in-memory display model behind the toolkit interfaces,
// and a communication object with canned answers. Enough for the round trips
// through COM; the real in-memory toolkit lives with the sample.
#include <memory>
#include <vector>

#include "vd/toolkit/communication.h"
#include "vd/toolkit/toolkit.h"

namespace vd::testhost {

using automation::String;
using automation::Variant;

class MemParam : public toolkit::Param {
 public:
  MemParam(int32_t type, Variant value) : type_(type), value_(std::move(value)) {}
  int32_t GetParamType() override { return type_; }
  Variant GetParamValue() override { return value_; }
  void SetParamValue(int32_t typeCode, const Variant& value) override {
    type_ = typeCode;
    value_ = value;
  }

 private:
  int32_t type_;
  Variant value_;
};

class MemParamList : public toolkit::ParamList {
 public:
  int32_t ParamCount() override { return static_cast<int32_t>(items.size()); }
  toolkit::ParamRef ParamItem(int16_t index) override;
  toolkit::ParamRef AddParam() override;
  std::vector<std::shared_ptr<MemParam>> items;
};

class MemDs;
class MemDsList;

class MemDsv : public toolkit::Dsv, public std::enable_shared_from_this<MemDsv> {
 public:
  String GetDsvName() override { return name; }
  void SetDsvName(const String& v) override { name = v; }
  int32_t GetDsvType() override { return type; }
  void SetDsvType(int32_t v) override { type = v; }
  int32_t GetDsvShape() override { return shape; }
  int32_t GetDsvRows() override { return rows; }
  void SetDsvRows(int32_t v) override { rows = v; }
  int32_t GetDsvCols() override { return cols; }
  void SetDsvCols(int32_t v) override { cols = v; }
  int32_t GetDsvScope() override { return scope; }
  void SetDsvScope(int32_t v) override { scope = v; }
  double GetDsvValue() override { return value; }
  void SetDsvValue(double v) override { value = v; }
  toolkit::DsRef GetDsvParent() override;
  int32_t GetDsvUseCount() override { return useCount; }
  bool RemoveDsv() override;
  bool DsvMoveUp() override;
  bool DsvMoveDown() override;
  toolkit::CustomDsvRef AsCustom() override { return custom; }

  String name;
  int32_t type = toolkit::dsvtype::kDouble, shape = 1, rows = 1, cols = 1, scope = 2, useCount = 0;
  double value = 0;
  std::weak_ptr<MemDs> parent;
  toolkit::CustomDsvRef custom;
};

class MemDsvList : public toolkit::DsvList {
 public:
  int32_t DsvCount() override { return static_cast<int32_t>(items.size()); }
  toolkit::DsvRef DsvItem(int32_t index) override;
  toolkit::DsvRef AddDsv() override;
  std::vector<std::shared_ptr<MemDsv>> items;
  std::weak_ptr<MemDs> owner;
};

class MemCustomDs : public toolkit::CustomDs {
 public:
  toolkit::ParamListRef GetParams() override { return params; }
  std::shared_ptr<MemParamList> params = std::make_shared<MemParamList>();
};

class MemCustomDsv : public toolkit::CustomDsv {
 public:
  toolkit::ParamListRef GetParams() override { return params; }
  int32_t GetDsvAccess() override { return access; }
  std::shared_ptr<MemParamList> params = std::make_shared<MemParamList>();
  int32_t access = 1;
};

class MemDs : public toolkit::Ds, public std::enable_shared_from_this<MemDs> {
 public:
  String GetDsName() override;
  void SetDsName(const String& value) override { name = value; }
  int32_t GetDsType() override { return kind; }
  toolkit::DsvListRef GetDsVars() override { return vars; }
  bool RemoveDs() override;
  bool DsMoveUp() override;
  bool DsMoveDown() override;
  bool GetDsAscii() override { return ascii; }
  void SetDsAscii(bool value) override { ascii = value; }
  toolkit::CustomDsRef AsCustom() override { return custom; }

  String name;
  int32_t kind = toolkit::kind::kFile;
  bool ascii = false;
  bool failReading = false;  // GetDsName raises 1234 with a description
  std::shared_ptr<MemDsvList> vars = std::make_shared<MemDsvList>();
  std::shared_ptr<MemCustomDs> custom;
  std::weak_ptr<MemDsList> list;
};

class MemDsList : public toolkit::DsList, public std::enable_shared_from_this<MemDsList> {
 public:
  int32_t DsCount() override { return static_cast<int32_t>(items.size()); }
  toolkit::DsRef DsItem(int32_t index) override;
  toolkit::DsRef AddDs(int32_t kind, const String& creationText) override;
  std::vector<std::shared_ptr<MemDs>> items;
};

class MemDisplay : public toolkit::Display {
 public:
  toolkit::DsListRef GetDataSources() override { return list; }
  std::shared_ptr<MemDsList> list = std::make_shared<MemDsList>();
};

// Appends a variable; custom (with two params) when the data source is custom.
std::shared_ptr<MemDsv> AddVariable(const std::shared_ptr<MemDs>& ds, const String& name, double value);
// A file source with two variables, a custom source with two, an empty memory source.
std::shared_ptr<MemDisplay> MakePlantDisplay();

class MemCommunication : public toolkit::Communication {
 public:
  void GetApplications(Variant& names, Variant& numbers) override;
  void ExecuteKorl(const String& request, Variant& result) override;
  void ScriptFileChanged(const String& path) override { changedPaths.push_back(path); }
  void ExecuteKorlInApp(int16_t applicationNr, const String& request, Variant& result) override;
  void ValidateItem(const String& itemId, Variant& value) override;
  std::vector<String> changedPaths;
};

}  // namespace vd::testhost
