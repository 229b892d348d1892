#include "json_source_map.h"

#include <nlohmann/json.hpp>

namespace vd::sample::detail {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// A cursor over JSON text known to be well formed.
class Cursor {
 public:
  Cursor(std::string_view text, size_t pos) : text_(text), pos_(pos) {}

  [[nodiscard]] size_t Pos() const { return pos_; }
  char Peek() {
    while (pos_ < text_.size() && IsBlank(text_[pos_])) ++pos_;
    return pos_ < text_.size() ? text_[pos_] : '\0';
  }
  bool Accept(char c) {
    if (Peek() != c) return false;
    ++pos_;
    return true;
  }

  // At an opening quote: the decoded text of the string.
  std::string ReadString() {
    const size_t start = pos_;
    SkipString();
    std::string_view raw = text_.substr(start, pos_ - start);
    if (raw.find('\\') == std::string_view::npos) return std::string(raw.substr(1, raw.size() - 2));
    return nlohmann::json::parse(raw).get<std::string>();
  }

  void SkipValue() {
    const char c = Peek();
    if (c == '"') {
      SkipString();
    } else if (c == '{' || c == '[') {
      int depth = 0;
      do {
        const char d = text_[pos_];
        if (d == '"') {
          SkipString();
          continue;
        }
        if (d == '{' || d == '[') ++depth;
        if (d == '}' || d == ']') --depth;
        ++pos_;
      } while (depth > 0 && pos_ < text_.size());
    } else {
      while (pos_ < text_.size() && !IsBlank(text_[pos_]) && text_[pos_] != ',' && text_[pos_] != ']' &&
             text_[pos_] != '}')
        ++pos_;
    }
  }

 private:
  void SkipString() {
    ++pos_;  // opening quote
    while (pos_ < text_.size() && text_[pos_] != '"') pos_ += text_[pos_] == '\\' ? 2 : 1;
    ++pos_;  // closing quote
  }

  std::string_view text_;
  size_t pos_;
};

// Inside an object (after its brace): moves to the value of the
// occurrence-th key named key and answers the key's offset.
std::optional<size_t> SeekKey(Cursor& cursor, std::string_view key, int occurrence) {
  if (cursor.Peek() == '}') return std::nullopt;
  while (cursor.Peek() == '"') {
    const size_t keyAt = cursor.Pos();
    const bool match = cursor.ReadString() == key && --occurrence == 0;
    cursor.Accept(':');
    if (match) {
      cursor.Peek();
      return keyAt;
    }
    cursor.SkipValue();
    if (!cursor.Accept(',')) break;
  }
  return std::nullopt;
}

}  // namespace

JsonPath Child(const JsonPath& path, JsonStep step) {
  JsonPath child = path;
  child.push_back(std::move(step));
  return child;
}

std::string Describe(const JsonPath& path) {
  if (path.empty()) return "the file";
  std::string text;
  for (const auto& step : path) {
    if (const auto* key = std::get_if<std::string>(&step)) {
      if (!text.empty()) text += '.';
      text += *key;
    } else {
      text += '[' + std::to_string(std::get<size_t>(step)) + ']';
    }
  }
  return text;
}

int LineAt(std::string_view text, size_t offset) {
  if (offset >= text.size()) {
    offset = text.size();
    while (offset > 0 && IsBlank(text[offset - 1])) --offset;
    if (offset > 0) --offset;
  }
  int line = 1;
  for (size_t i = 0; i < offset; ++i)
    if (text[i] == '\n') ++line;
  return line;
}

std::optional<size_t> FindValue(std::string_view text, const JsonPath& path) {
  Cursor cursor(text, 0);
  for (const auto& step : path) {
    if (const auto* key = std::get_if<std::string>(&step)) {
      if (!cursor.Accept('{') || !SeekKey(cursor, *key, 1)) return std::nullopt;
    } else {
      if (!cursor.Accept('[')) return std::nullopt;
      for (size_t i = 0; i < std::get<size_t>(step); ++i) {
        if (cursor.Peek() == ']') return std::nullopt;
        cursor.SkipValue();
        if (!cursor.Accept(',')) return std::nullopt;
      }
      if (cursor.Peek() == ']') return std::nullopt;
    }
  }
  cursor.Peek();
  return cursor.Pos();
}

std::optional<size_t> FindKey(std::string_view text, size_t objectOrdinal, std::string_view key, int occurrence) {
  size_t seen = 0;
  for (size_t pos = 0; pos < text.size(); ++pos) {
    if (text[pos] == '"') {
      for (++pos; pos < text.size() && text[pos] != '"';) pos += text[pos] == '\\' ? 2 : 1;
    } else if (text[pos] == '{' && ++seen == objectOrdinal) {
      Cursor cursor(text, pos + 1);
      return SeekKey(cursor, key, occurrence);
    }
  }
  return std::nullopt;
}

}  // namespace vd::sample::detail
