#pragma once
// The in-memory display model: the toolkit's operations with the toolkit's own
// rules, for the embedded default, the sample displays and the tests.
//
// Kinds and names (AddDs(kind, creationText); the new data source goes last):
// - 2 file: the creation text is the file name; an empty text gives a fresh
//   name "file<n>.dat". New file data sources are ASCII.
// - 3 constant, 6 memory: the creation text is ignored; fresh names
//   "constant<n>" and "memory<n>".
// - 105 custom: the creation text is the class name (empty: refused, nullptr);
//   the data source is always named "default.custom", even when that name is
//   taken. Its class decides its initial parameters: the SCADA system's class
//   (kScadaDsClass, compared ignoring case) gets the marker parameters
//   1 text kScadaDsMarker, 2 number 0 (application), 3 number 500 (blink
//   period, ms); any other class starts with no parameters.
// - any other kind (for example 5): refused, nullptr.
// - "Fresh" means: n counts up from the list's count + 1 to the first name that
//   no data source (or, for variables, no variable of the same data source)
//   carries, compared ignoring case. Renaming (SetDsName, SetDsvName) accepts
//   any text, also empty or taken names.
// - AddDsv appends "var<n>": Float (7) in file and constant data sources,
//   Double (8) elsewhere; 1 row, 1 column, private, value 0, use count 0,
//   access 0. Variables of custom data sources start with no parameters.
// - The toolkit's own limits (ToolkitLimits): beyond them AddDs / AddDsv
//   refuse with nullptr.
//
// Moves and deletes:
// - DsMoveUp / DsvMoveUp at the first place and DsMoveDown / DsvMoveDown at
//   the last place refuse (False) and change nothing.
// - RemoveDsv refuses (False) a variable whose use count is 1 or more;
//   RemoveDs refuses a data source with any such variable.
// - A deleted data source or variable raises error 5 ("... was deleted ...")
//   on every further call; so do the variables, lists and parameters under a
//   deleted data source.
// - An object still held after its owner was released (the display, or the
//   data source of a variable) keeps its own data; the calls that need the
//   owner (RemoveDs, RemoveDsv, the moves, GetDsvParent) raise error 5
//   ("... no longer belongs to ...").
//
// Variables:
// - Type 1..9, scope 1 or 2, rows and columns 0..65535; anything else raises
//   error 5 and changes nothing. The shape is derived: rows >= 2 matrix, else
//   columns >= 2 vector, else scalar.
// - The value is one Double, kept for every type.
// - Formats: only file data sources have one (GetDsAscii); GetDsAscii of other
//   kinds is False and SetDsAscii on them raises error 5.
// - The custom interfaces (AsCustom) exist only for data sources of kind 105
//   and their variables; GetDsvAccess answers the stored access value (1 = read
//   only), 0 unless set up otherwise.
// - DsItem / DsvItem outside 1..count raise error 9.
//
// Ownership: a display owns its list, the list its data sources, a data source
// its variables; children hold only weak references to their owners, so a
// released display frees everything.
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "vd/sample/memory_params.h"
#include "vd/toolkit/toolkit.h"

namespace vd::sample {

// The custom data source class of the SCADA system and its marker text.
inline constexpr char16_t kScadaDsClass[] = u"TelvaneDV.DataSource";
inline constexpr char16_t kScadaDsMarker[] = u"Telvane DV DataSource";
inline constexpr double kScadaDefaultBlinkPeriod = 500;

// Largest row and column count of a variable.
inline constexpr int32_t kMaxDimension = 65535;

struct ToolkitLimits {
  int32_t maxDataSources = 65535;
  int32_t maxVariablesPerDs = 65535;
};

class MemoryDs;
class MemoryDsList;
class MemoryDsv;
class MemoryDsvList;

// Case-insensitive name counts of one list, for fresh names in constant time.
class NameIndex {
 public:
  void Add(automation::StringView name);
  void Remove(automation::StringView name);
  [[nodiscard]] bool Contains(automation::StringView name) const;
  // prefix + n + suffix for the first n >= start that is not taken.
  [[nodiscard]] String Fresh(automation::StringView prefix, int32_t start, automation::StringView suffix) const;

 private:
  std::unordered_map<String, int32_t> counts_;
};

class MemoryDisplay final : public toolkit::Display {
 public:
  static std::shared_ptr<MemoryDisplay> Create(ToolkitLimits limits = {});

  toolkit::DsListRef GetDataSources() override;
  [[nodiscard]] std::shared_ptr<MemoryDsList> DataSources() const { return list_; }

 private:
  explicit MemoryDisplay(std::shared_ptr<MemoryDsList> list) : list_(std::move(list)) {}
  std::shared_ptr<MemoryDsList> list_;
};

class MemoryDsList final : public toolkit::DsList, public std::enable_shared_from_this<MemoryDsList> {
 public:
  int32_t DsCount() override;
  toolkit::DsRef DsItem(int32_t index) override;
  toolkit::DsRef AddDs(int32_t kind, const String& creationText) override;

  // The same operations with the concrete type.
  std::shared_ptr<MemoryDs> Item(int32_t index);
  std::shared_ptr<MemoryDs> Add(int32_t kind, const String& creationText);

 private:
  friend class MemoryDisplay;
  friend class MemoryDs;
  explicit MemoryDsList(ToolkitLimits limits) : limits_(limits) {}
  int32_t IndexOf(const MemoryDs* ds) const;  // 1-based, 0 when not listed
  bool Remove(MemoryDs* ds);
  bool Move(MemoryDs* ds, int32_t step);

  ToolkitLimits limits_;
  std::vector<std::shared_ptr<MemoryDs>> items_;
  NameIndex names_;
};

class MemoryDs final : public toolkit::Ds, public std::enable_shared_from_this<MemoryDs> {
 public:
  ~MemoryDs() override;

  String GetDsName() override;
  void SetDsName(const String& name) override;
  int32_t GetDsType() override;
  toolkit::DsvListRef GetDsVars() override;
  bool RemoveDs() override;
  bool DsMoveUp() override;
  bool DsMoveDown() override;
  bool GetDsAscii() override;
  void SetDsAscii(bool ascii) override;
  toolkit::CustomDsRef AsCustom() override;

  // Set-up and inspection for samples and tests.
  [[nodiscard]] const String& ClassName() const { return className_; }  // empty unless custom
  std::shared_ptr<MemoryDsvList> Variables();
  std::shared_ptr<MemoryParamList> Params();  // nullptr unless custom
  [[nodiscard]] bool IsRemoved() const;

 private:
  friend class MemoryDsList;
  friend class MemoryDsvList;
  MemoryDs(std::weak_ptr<MemoryDsList> list, int32_t kind, String name, String className);
  void CheckPresent() const;
  std::shared_ptr<MemoryDsList> List() const;  // error 5 when the display is gone

  std::weak_ptr<MemoryDsList> list_;
  std::shared_ptr<detail::Presence> presence_;
  int32_t kind_;
  String name_;
  String className_;
  bool ascii_;
  std::shared_ptr<MemoryDsvList> vars_;
  std::shared_ptr<MemoryParamList> params_;
};

class MemoryDsvList final : public toolkit::DsvList, public std::enable_shared_from_this<MemoryDsvList> {
 public:
  ~MemoryDsvList() override;

  int32_t DsvCount() override;
  toolkit::DsvRef DsvItem(int32_t index) override;
  toolkit::DsvRef AddDsv() override;

  std::shared_ptr<MemoryDsv> Item(int32_t index);
  std::shared_ptr<MemoryDsv> Add();

 private:
  friend class MemoryDs;
  friend class MemoryDsList;
  friend class MemoryDsv;
  MemoryDsvList(std::weak_ptr<MemoryDs> owner, std::shared_ptr<detail::Presence> presence, int32_t kind,
                int32_t maxVariables)
      : owner_(std::move(owner)), presence_(std::move(presence)), kind_(kind), maxVariables_(maxVariables) {}
  void CheckPresent() const;
  int32_t IndexOf(const MemoryDsv* dsv) const;
  bool Remove(MemoryDsv* dsv);
  bool Move(MemoryDsv* dsv, int32_t step);

  std::weak_ptr<MemoryDs> owner_;
  std::shared_ptr<detail::Presence> presence_;  // the owning data source's
  int32_t kind_;
  int32_t maxVariables_;
  std::vector<std::shared_ptr<MemoryDsv>> items_;
  NameIndex names_;
};

class MemoryDsv final : public toolkit::Dsv, public std::enable_shared_from_this<MemoryDsv> {
 public:
  String GetDsvName() override;
  void SetDsvName(const String& name) override;
  int32_t GetDsvType() override;
  void SetDsvType(int32_t type) override;
  int32_t GetDsvShape() override;
  int32_t GetDsvRows() override;
  void SetDsvRows(int32_t rows) override;
  int32_t GetDsvCols() override;
  void SetDsvCols(int32_t cols) override;
  int32_t GetDsvScope() override;
  void SetDsvScope(int32_t scope) override;
  double GetDsvValue() override;
  void SetDsvValue(double value) override;
  toolkit::DsRef GetDsvParent() override;
  int32_t GetDsvUseCount() override;
  bool RemoveDsv() override;
  bool DsvMoveUp() override;
  bool DsvMoveDown() override;
  toolkit::CustomDsvRef AsCustom() override;

  // Set-up and inspection for samples and tests.
  void SetUseCount(int32_t count);  // error 5 when negative
  void SetAccess(int32_t access);
  int32_t Access();
  std::shared_ptr<MemoryParamList> Params();  // nullptr unless in a custom data source
  std::shared_ptr<MemoryDs> Parent();
  [[nodiscard]] bool IsRemoved() const;

  // Only a variable list makes variables; it allocates each one together
  // with its reference count, so that reading a variable touches one block.
  class Token {
    friend class MemoryDsvList;
    Token() = default;
  };
  MemoryDsv(Token, std::weak_ptr<MemoryDsvList> list, std::shared_ptr<detail::Presence> parentPresence, String name,
            int32_t type, bool custom);

 private:
  friend class MemoryDsvList;
  void CheckPresent() const;
  std::shared_ptr<MemoryDsvList> List() const;  // error 5 when the data source is gone

  std::weak_ptr<MemoryDsvList> list_;
  std::shared_ptr<detail::Presence> presence_;
  String name_;
  int32_t type_;
  int32_t rows_ = 1;
  int32_t cols_ = 1;
  int32_t scope_ = toolkit::scope::kPrivate;
  double value_ = 0;
  int32_t useCount_ = 0;
  int32_t access_ = 0;
  std::shared_ptr<MemoryParamList> params_;
};

}  // namespace vd::sample
