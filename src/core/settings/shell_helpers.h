#pragma once
#include <string>
#include <string_view>

#include "core/platform/default_editor.h"
#include "core/platform/desktop.h"

namespace rakeyard {

// The text as little-endian UTF-16 bytes, as MSTS files hold text: ASCII gets a zero byte after
// each character. Text is read as UTF-8; a byte that is no part of a UTF-8 character is taken
// as the 8-bit (Latin-1) character of that value.
std::string toWideBytes(std::string_view text);

}  // namespace rakeyard
