#pragma once
// The classic constants the form code is written with, and the error numbers
// the controls raise besides those of vd::automation::err.
#include <cstdint>

namespace vd::forms {

// Message box styles (added together) and the buttons it answers with.
inline constexpr int32_t vbOKOnly = 0;
inline constexpr int32_t vbOKCancel = 1;
inline constexpr int32_t vbYesNo = 4;
inline constexpr int32_t vbCritical = 16;
inline constexpr int32_t vbQuestion = 32;
inline constexpr int32_t vbExclamation = 48;
inline constexpr int32_t vbInformation = 64;
inline constexpr int32_t vbDefaultButton2 = 256;
inline constexpr int32_t vbOK = 1;
inline constexpr int32_t vbCancel = 2;
inline constexpr int32_t vbYes = 6;
inline constexpr int32_t vbNo = 7;

// Mouse pointers of forms, controls and the screen.
inline constexpr int16_t vbDefault = 0;
inline constexpr int16_t vbHourglass = 11;
inline constexpr int16_t vbNoDrop = 12;

// Check box values.
inline constexpr int16_t vbUnchecked = 0;
inline constexpr int16_t vbChecked = 1;
inline constexpr int16_t vbGrayed = 2;

// Shift state bits of KeyDown and MouseMove, mouse buttons, and key codes.
inline constexpr int16_t vbShiftMask = 1;
inline constexpr int16_t vbCtrlMask = 2;
inline constexpr int16_t vbAltMask = 4;
inline constexpr int16_t vbLeftButton = 1;
inline constexpr int16_t vbRightButton = 2;
inline constexpr int16_t vbKeyBack = 8;
inline constexpr int16_t vbKeyReturn = 13;
inline constexpr int16_t vbKeyEscape = 27;
inline constexpr int16_t vbKeyF = 70;
inline constexpr int16_t vbKeyF3 = 114;

// Where Nodes.Add puts a node relative to the node it names.
enum TreeRelationship : int16_t { tvwFirst = 0, tvwLast = 1, tvwNext = 2, tvwPrevious = 3, tvwChild = 4 };

// A combo box's style, fixed when it is created.
enum class ComboStyle : int16_t {
  kDropdownCombo = 0,  // editable text and a list that drops down
  kSimpleCombo = 1,    // editable text and a list always shown
  kDropdownList = 2,   // the text is always the selected entry
};

// Status bar styles.
inline constexpr int16_t sbrNormal = 0;
inline constexpr int16_t sbrSimple = 1;

namespace err {
inline constexpr int32_t kInvalidPropertyValue = 380;
inline constexpr int32_t kInvalidPropertyArrayIndex = 381;
inline constexpr int32_t kTextPropertyReadOnly = 383;
inline constexpr int32_t kFormAlreadyShownModally = 400;
inline constexpr int32_t kNodeRemoved = 35605;
inline constexpr int32_t kImageListNotInitialized = 35613;
}  // namespace err

}  // namespace vd::forms
