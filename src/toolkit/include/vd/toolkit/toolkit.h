#pragma once
// The display object model that the host hands in: a display owns an ordered,
// 1-based list of data sources, each owning an ordered, 1-based list of data
// variables. Every call may raise an AutomationError; the model alone decides
// names, moves and deletes. References are shared pointers; Nothing is nullptr.
#include <cstdint>
#include <memory>

#include "vd/automation/object.h"
#include "vd/automation/string.h"
#include "vd/automation/variant.h"

namespace vd::toolkit {

using automation::String;
using automation::Variant;

class Param;
class ParamList;
class CustomDs;
class CustomDsv;
class Ds;
class DsList;
class Dsv;
class DsvList;
class Display;

using ParamRef = std::shared_ptr<Param>;
using ParamListRef = std::shared_ptr<ParamList>;
using CustomDsRef = std::shared_ptr<CustomDs>;
using CustomDsvRef = std::shared_ptr<CustomDsv>;
using DsRef = std::shared_ptr<Ds>;
using DsListRef = std::shared_ptr<DsList>;
using DsvRef = std::shared_ptr<Dsv>;
using DsvListRef = std::shared_ptr<DsvList>;
using DisplayRef = std::shared_ptr<Display>;

// Data source kind codes.
namespace kind {
inline constexpr int32_t kFile = 2;
inline constexpr int32_t kConstant = 3;
inline constexpr int32_t kMemory = 6;
inline constexpr int32_t kCustom = 105;
}  // namespace kind

// Variable type, shape and scope codes.
namespace dsvtype {
inline constexpr int32_t kByte = 1, kUByte = 2, kShort = 3, kUShort = 4, kLong = 5, kULong = 6, kFloat = 7, kDouble = 8,
                         kText = 9;
}  // namespace dsvtype
namespace shape {
inline constexpr int32_t kScalar = 1, kVector = 2, kMatrix = 3;
}  // namespace shape
namespace scope {
inline constexpr int32_t kPrivate = 1, kPublic = 2;
}  // namespace scope

// Custom parameter type codes.
namespace paramtype {
inline constexpr int32_t kNumber = 5;
inline constexpr int32_t kText = 9;
}  // namespace paramtype

class Param : public automation::Object {
 public:
  virtual int32_t GetParamType() = 0;
  virtual Variant GetParamValue() = 0;
  virtual void SetParamValue(int32_t typeCode, const Variant& value) = 0;
};

class ParamList : public automation::Object {
 public:
  virtual int32_t ParamCount() = 0;
  virtual ParamRef ParamItem(int16_t index) = 0;  // 1-based
  virtual ParamRef AddParam() = 0;                // appends one parameter at the end
};

// The parameter-list (custom) interface of a custom data source.
class CustomDs : public automation::Object {
 public:
  virtual ParamListRef GetParams() = 0;
};

// The parameter-list (custom) interface of a variable of a custom data source.
class CustomDsv : public automation::Object {
 public:
  virtual ParamListRef GetParams() = 0;
  virtual int32_t GetDsvAccess() = 0;  // 1 = not writable
};

class Ds : public automation::Object {
 public:
  virtual String GetDsName() = 0;
  virtual void SetDsName(const String& name) = 0;
  virtual int32_t GetDsType() = 0;
  virtual DsvListRef GetDsVars() = 0;
  virtual bool RemoveDs() = 0;
  virtual bool DsMoveUp() = 0;
  virtual bool DsMoveDown() = 0;
  virtual bool GetDsAscii() = 0;
  virtual void SetDsAscii(bool ascii) = 0;
  // The custom interface, or nullptr when the data source does not expose it.
  virtual CustomDsRef AsCustom() = 0;
};

class DsList : public automation::Object {
 public:
  virtual int32_t DsCount() = 0;
  virtual DsRef DsItem(int32_t index) = 0;  // 1-based
  // A new data source of the kind, appended last; nullptr when the model refuses.
  virtual DsRef AddDs(int32_t kind, const String& creationText) = 0;
};

class Dsv : public automation::Object {
 public:
  virtual String GetDsvName() = 0;
  virtual void SetDsvName(const String& name) = 0;
  virtual int32_t GetDsvType() = 0;
  virtual void SetDsvType(int32_t type) = 0;
  virtual int32_t GetDsvShape() = 0;
  virtual int32_t GetDsvRows() = 0;
  virtual void SetDsvRows(int32_t rows) = 0;
  virtual int32_t GetDsvCols() = 0;
  virtual void SetDsvCols(int32_t cols) = 0;
  virtual int32_t GetDsvScope() = 0;
  virtual void SetDsvScope(int32_t scope) = 0;
  virtual double GetDsvValue() = 0;
  virtual void SetDsvValue(double value) = 0;
  virtual DsRef GetDsvParent() = 0;
  virtual int32_t GetDsvUseCount() = 0;
  virtual bool RemoveDsv() = 0;
  virtual bool DsvMoveUp() = 0;
  virtual bool DsvMoveDown() = 0;
  // The custom interface, or nullptr when the variable does not expose it.
  virtual CustomDsvRef AsCustom() = 0;
};

class DsvList : public automation::Object {
 public:
  virtual int32_t DsvCount() = 0;
  virtual DsvRef DsvItem(int32_t index) = 0;  // 1-based
  // A new variable appended last, named by the model; nullptr when refused.
  virtual DsvRef AddDsv() = 0;
};

class Display : public automation::Object {
 public:
  virtual DsListRef GetDataSources() = 0;
};

}  // namespace vd::toolkit
