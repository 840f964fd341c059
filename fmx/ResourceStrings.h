// The framework's fixed texts.
#pragma once

#include <string_view>

namespace fmx {

inline constexpr std::string_view SPointInTextLayoutError = "No position in the text lies at this point";
// For Format, with the name of the function.
inline constexpr std::string_view SResultCanNotBeNil = "The result of %s must not be nil";
inline constexpr std::string_view SArgumentCanNotBeNil = "The argument must not be nil";
inline constexpr std::string_view SCircularOwnership = "A component cannot be owned by what it owns";

// Captions of an editing control's menu; pass them through Translate (fmx/Translate.h) before they are shown.
inline constexpr std::u16string_view SEditCut = u"Cut";
inline constexpr std::u16string_view SEditCopy = u"Copy";
inline constexpr std::u16string_view SEditPaste = u"Paste";
inline constexpr std::u16string_view SEditDelete = u"Delete";
inline constexpr std::u16string_view SEditSelectAll = u"Select All";
inline constexpr std::u16string_view SEditUndo = u"Undo";
inline constexpr std::u16string_view SMenuSeparator = u"-";

}  // namespace fmx
