#pragma once
#include <string>
#include <string_view>

#include "core/platform/default_editor.h"
#include "core/platform/desktop.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// The text as little-endian UTF-16 bytes, as MSTS files hold text: ASCII gets a zero byte after
// each character. Text is read as UTF-8; a byte that is no part of a UTF-8 character is taken
// as the 8-bit (Latin-1) character of that value.
std::string toWideBytes(std::string_view text);

// Opens file in the chosen text editor. An editor that works only inside a terminal is not
// started, and the user is told to choose one with a window (Refused); the caller tells of the
// other outcomes as it sees fit.
enum class EditorStart { Started, NoEditor, Refused, Failed };
EditorStart startTextEditor(const PathGlobals& paths, const std::string& file, Services& services);

// The message for a terminal editor, whether chosen in the editor window or stored before.
std::string terminalEditorText(std::string_view editorPath);

}  // namespace rakeyard
