#include "core/settings/shell_helpers.h"

#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

void appendUnit(std::string& out, char32_t unit) {
    out += static_cast<char>(unit & 0xFF);
    out += static_cast<char>((unit >> 8) & 0xFF);
}

}  // namespace

std::string terminalEditorText(std::string_view editorPath) {
    return "The text editor \"" + std::string(editorPath) +
           "\" works only inside a terminal, so it would open no window here.\nPlease select "
           "\"Options\" from the menu and choose a text editor program with a window of its "
           "own, such as gedit, Kate or Mousepad.";
}

EditorStart startTextEditor(const PathGlobals& paths, const std::string& file,
                            Services& services) {
    if (paths.editorPath.empty()) return EditorStart::NoEditor;
    if (isTerminalEditor(paths.editorPath)) {
        services.dialogs.report(terminalEditorText(paths.editorPath), Icon::Exclamation);
        return EditorStart::Refused;
    }
    return services.desktop.startProgram(paths.editorPath, {file}) ? EditorStart::Started
                                                                   : EditorStart::Failed;
}

std::string toWideBytes(std::string_view text) {
    std::string out;
    out.reserve(text.size() * 2);
    for (std::size_t i = 0; i < text.size();) {
        auto [c, length] = utf8CharacterAt(text, i);  // a stray byte is its Latin-1 letter
        if (length == 0) {
            c = static_cast<unsigned char>(text[i]);
            length = 1;
        }
        i += length;
        if (c >= 0x10000) {
            appendUnit(out, 0xD800 + ((c - 0x10000) >> 10));
            appendUnit(out, 0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            appendUnit(out, c);
        }
    }
    return out;
}

}  // namespace rakeyard
