#pragma once
#include <string_view>

namespace rakeyard {

// Words and examples in messages as a user of this system knows them.
#ifdef _WIN32
inline constexpr std::string_view kTrashName = "Recycle Bin";
inline constexpr std::string_view kMstsFolderExample =
    "C:\\Program Files\\Microsoft Games\\Train Simulator";
inline constexpr std::string_view kEditorExample = "C:\\Program Files\\Accessories\\Wordpad.exe";
inline constexpr std::string_view kViewerExample =
    "C:\\Program Files\\Your 3D viewer path\\3D viewer program";
inline constexpr std::string_view kStandardEditorName = "Wordpad";
// Programs are told by their name: a file ending in ".exe".
inline constexpr bool kProgramsEndInExe = true;
#else
inline constexpr std::string_view kTrashName = "Trash";
inline constexpr std::string_view kMstsFolderExample = "/home/you/Games/Train Simulator";
inline constexpr std::string_view kEditorExample = "/usr/bin/gedit";
inline constexpr std::string_view kViewerExample = "/opt/your 3D viewer/3D viewer program";
inline constexpr std::string_view kStandardEditorName = "System editor";
// Programs are told by their permission to run.
inline constexpr bool kProgramsEndInExe = false;
#endif

}  // namespace rakeyard
