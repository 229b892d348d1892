#include "vd/automation/error.h"

namespace vd::automation {

String StandardDescription(int32_t number) {
  switch (number) {
    case err::kInvalidProcedureCall:
      return u"Invalid procedure call or argument";
    case err::kOverflow:
      return u"Overflow";
    case err::kSubscriptOutOfRange:
      return u"Subscript out of range";
    case err::kTypeMismatch:
      return u"Type mismatch";
    case err::kFileNotFound:
      return u"File not found";
    case err::kObjectNotSet:
      return u"Object variable or With block variable not set";
    case err::kInvalidUseOfNull:
      return u"Invalid use of Null";
    case err::kObjectRequired:
      return u"Object required";
    case err::kMethodNotSupported:
      return u"Object doesn't support this property or method";
    case err::kKeyAlreadyInCollection:
      return u"This key is already associated with an element of this collection";
    case err::kTreeIndexOutOfBounds:
      return u"Index out of bounds";
    case err::kTreeElementNotFound:
      return u"Element not found";
    case err::kTreeKeyNotUnique:
      return u"Key is not unique in collection";
    default:
      return u"Application-defined or object-defined error";
  }
}

AutomationError::AutomationError(int32_t number) : AutomationError(number, StandardDescription(number)) {}

AutomationError::AutomationError(int32_t number, String description)
    : number_(number), description_(std::move(description)) {
  what_ = "error " + std::to_string(number_) + ": " + ToUtf8(description_);
}

void Raise(int32_t number) { throw AutomationError(number); }
void Raise(int32_t number, String description) { throw AutomationError(number, std::move(description)); }

}  // namespace vd::automation
