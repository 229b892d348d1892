#pragma once
// Test-only: one line of text per data source and per variable of a display,
// read through the toolkit interfaces alone. Two displays read the same when
// every operation that reads answers alike, so a display seen through an
// adapter can be compared with the display itself.
//
//   DS <i> <name>|<kind>|<ascii 0/1>[|P=<type>:<value>,...]
//   V <i>.<j> <name>|<type>|<shape>|<rows>|<cols>|<scope>|<value>|<uses>|<parent name>[|A=<access>|P=...]
#include "vd/automation/string.h"
#include "vd/toolkit/toolkit.h"

namespace vd::testsupport {

automation::String DescribeDisplay(toolkit::Display& display);

}  // namespace vd::testsupport
