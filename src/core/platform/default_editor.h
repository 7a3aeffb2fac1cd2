#pragma once
#include <string>
#include <string_view>

namespace rakeyard {

// The text editor offered when the user takes the default. On Windows the path of WordPad by
// the system's version (see wordpadPathForVersion); elsewhere the first editor of
// kTextEditorNames found on PATH; "" when there is none.
std::string defaultEditorPath();

// WordPad's path for a system version as GetVersionExA tells it: platform 1 (95/98/Me) with
// minor 0, 10 or 90; platform 2 (NT) with major 3 ("Not supported"), 4 or 5. Another platform
// gives "Failed"; any other version "".
std::string wordpadPathForVersion(unsigned long platformId, unsigned long major,
                                  unsigned long minor);

// Graphical text editors in the order they are looked for; xdg-open, which opens a file in
// whatever the desktop chose, comes last.
inline constexpr std::string_view kTextEditorNames[] = {
    "gedit", "gnome-text-editor", "kate",  "kwrite",  "mousepad", "xed",
    "pluma", "featherpad",        "geany", "leafpad", "xdg-open"};

// Whether path names a program: on Windows a file ending in ".exe", elsewhere a file that may
// be run.
bool isProgramFile(const std::string& path);

// Whether the editor at path works only inside a terminal (vi, nano...): started by a window
// program off Windows it would open no window, and the user would never see the file.
bool isTerminalEditor(std::string_view path);

// The full path of the first name of kTextEditorNames that is an executable file in a folder of
// searchPath (folders separated as in PATH); "" when none is.
std::string findEditorOnPath(std::string_view searchPath);

}  // namespace rakeyard
