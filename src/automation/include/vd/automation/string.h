#pragma once
// Counted 16-bit text, as an Automation BSTR holds it. Convert only at the
// boundaries (BSTR, ANSI Win32 calls, files).
#include <string>
#include <string_view>

namespace vd::automation {

using String = std::u16string;
using StringView = std::u16string_view;

// UTF-8 <-> UTF-16. Nothing throws. Each maximal ill-formed UTF-8 subsequence
// becomes one U+FFFD; an unpaired surrogate becomes U+FFFD in UTF-8.
String FromUtf8(std::string_view utf8);
std::string ToUtf8(StringView text);

// Decimal text of a whole number, no blanks, no leading zeros ("-12", "0").
String ToDecimal(long long value);

}  // namespace vd::automation
