#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/unit_record.h"
#include "core/platform/services.h"
#include "core/settings/settings_record.h"

namespace rakeyard {

// What an alias or a restore came to. Refused: nothing was changed. Failed: a write went wrong
// after the first change; the engine's backup, when one was asked for, restores its ".eng".
enum class AliasOutcome { Done, Refused, Failed };

inline constexpr std::string_view kAliasFailed = "An error ocurred while aliasing this engine";

// "There has been an error while opening the file " + path.
void reportCannotOpen(const std::string& path, Services& services);
// "The file " + path + " contains an error!", titled "ERROR".
void reportFileError(const std::string& path, Services& services);
// "The locomotive has been aliased! ..."
void reportAliased(Services& services);

// The file's bytes; when it can't be read the user is told, and nullopt.
[[nodiscard]] std::optional<std::string> readOrReport(const std::string& path, Services& services);

// The path relative to the Trainset folder, found whatever the letter case and separators, in
// this platform's separators; nullopt when the path does not lie inside Trainset or climbs
// with "..".
[[nodiscard]] std::optional<std::string> relativeToTrainset(const PathGlobals& paths,
                                                            FileSystem& fs,
                                                            const std::string& path);

// A reference from a folder two below Trainset to a path relative to Trainset:
// "..\\..\\" + the path, every separator written as two backslashes as MSTS files hold them.
[[nodiscard]] std::u16string trainsetReference(std::string_view relativePath);

// The ".eng" path of a catalogued engine and that of its backup.
[[nodiscard]] std::string enginePath(const EngineRecord& engine);
[[nodiscard]] std::string backupPath(const EngineRecord& engine);

// Refuses, with kAliasFailed and why, a backup that would replace one already there.
[[nodiscard]] bool backupIsFree(const EngineRecord& engine, bool backup, Services& services);

// Writes the aliased ".eng": first, when asked, its backup as an exact copy of oldBytes, then
// the new bytes. A failure is told with kAliasFailed; a backup made for a ".eng" that could then
// not be written goes again, as the old file is still whole.
[[nodiscard]] bool writeAliasedEngine(const EngineRecord& engine, std::string_view oldBytes,
                                      std::string_view newBytes, bool backup, Services& services);

// The names, in upper case, that the other ".eng" files of the engine's folder give their cab
// view and sounds (bare file names only), with the file that names each.
struct NamedFile {
    std::string upperName;
    std::string engineFile;
};
[[nodiscard]] std::vector<NamedFile> namesOfOtherEngines(const EngineRecord& engine,
                                                         FileSystem& fs);

// Refuses, with why, a sub-folder of the engine that is a link: aliasing touches nothing
// outside the engine's own CABVIEW and SOUND folders.
[[nodiscard]] bool folderIsOwn(const std::string& folder, Services& services);

// Moves the "*.eng" files of the program's folder to the trash: copies a failed alias of an
// older version may have left. Nothing is done when the program's folder is the MSTS folder or
// lies inside it, where such files are engines.
void removeLeftoverCopies(const PathGlobals& paths, Services& services);

}  // namespace rakeyard
