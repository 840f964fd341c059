// The Unicode names of the code points that right-to-left text and its presentation forms are made of.
// Source: UnicodeData.txt, Unicode 15.0.0, through make_form_names.py.
#pragma once

#include <cstdint>
#include <string_view>

namespace orv::command {

// For example "ARABIC LETTER BEH INITIAL FORM"; empty for a code point outside the table.
std::string_view FormName(std::uint32_t codePoint);

}  // namespace orv::command
