#pragma once
// The sibling list of a node's children, and where a text goes among sorted siblings.
#include "vd/automation/text.h"
#include "vd/forms/node.h"

namespace vd::forms::detail {

// Links node into parent's children after `after` (nullptr: first).
void LinkAfter(Node& parent, Node* after, Node& node);
void Unlink(Node& node);
// The child of parent after which a node with this text goes when sorted
// (after every sibling whose text is not greater), nullptr for first.
Node* SortedPlace(const Node& parent, vd::automation::StringView text);

}  // namespace vd::forms::detail
