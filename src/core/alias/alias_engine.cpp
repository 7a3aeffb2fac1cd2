#include "core/alias/alias_engine.h"

#include <optional>

#include "core/alias/alias_rewrite.h"
#include "core/msts/msts_lines.h"
#include "core/msts/trainset_files.h"
#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

// A file to write into one of the target's sub-folders.
struct NewFile {
    std::string name;
    std::string bytes;
};

// The new files of the target's CABVIEW or SOUND folder, which replace all of its files with
// the extension.
struct NewFolderFiles {
    std::string sub;             // "CABVIEW" or "SOUND"
    std::string upperExtension;  // ".CVF" or ".SMS"
    std::vector<NewFile> files;
};

bool choicesComplete(const AliasLists& lists, const EngineAliasChoice& choice, Services& services) {
    const auto refuse = [&](const std::string& text) {
        services.dialogs.report(text, Icon::Exclamation);
        return false;
    };
    const std::string leaveIt = "\n\"" + std::string(kNoAlias) + "\" to leave it unchanged!";
    if (lists.notAliased.empty()) return refuse("There are no engines to alias!");
    if (choice.target.empty()) return refuse("You must provide an engine to alias!");
    if (choice.cabSource.empty())
        return refuse("You must provide a cabview source to alias from or choose" + leaveIt);
    if (choice.soundSource.empty())
        return refuse("You must provide a sound source to alias from or choose" + leaveIt);
    const std::string target = upperAscii(choice.target);
    if (target == upperAscii(choice.cabSource) || target == upperAscii(choice.soundSource))
        return refuse("You cannot alias an engine to itself!");
    return true;
}

// A name the source's ".eng" gives, which becomes a file of the target's folder: it must be a
// plain file name, so that nothing is written elsewhere.
bool isPlainName(const std::string& name, const std::string& engFile, Services& services) {
    const std::string problem = fileNameProblem(name);
    if (problem.empty()) return true;
    services.dialogs.report("The file " + engFile + " names \"" + name +
                                "\", which is not a file of its own folder: " + problem +
                                "\nNothing was changed.",
                            Icon::Exclamation);
    return false;
}

// The source's definition file, its ".ace" or ".wav" names pointing into the source's folder.
std::optional<NewFile> aliasedCopy(const EngineRecord& source, const std::string& sub,
                                   const std::string& name, const PathGlobals& paths,
                                   Services& services) {
    const std::string path = joinPath(joinPath(source.folderPath, sub), name);
    const std::optional<std::string> bytes = readOrReport(path, services);
    if (!bytes) return std::nullopt;
    const std::optional<std::string> folder =
        relativeToTrainset(paths, services.fs, source.folderPath);
    if (!folder) {
        services.dialogs.report(kAliasFailed, Icon::Stop);
        return std::nullopt;
    }
    const std::u16string prefix = trainsetReference(joinPath(*folder, sub)) + u"\\\\";
    const std::vector<std::u16string> lines = readTextLines(*bytes);
    const auto rewritten =
        sub == "CABVIEW" ? prefixAceNames(lines, prefix) : prefixWavNames(lines, prefix);
    if (!rewritten) {
        reportFileError(services.fs.resolve(path), services);
        return std::nullopt;
    }
    return NewFile{name, writeTextLines(*rewritten)};
}

// The references of a source's ".eng"; nullopt (told) when it can't be read or its lines are
// faulty.
std::optional<EngineReferences> sourceReferences(const EngineRecord& source, Services& services) {
    const std::string path = enginePath(source);
    const std::optional<std::string> bytes = readOrReport(path, services);
    if (!bytes) return std::nullopt;
    return readEngineReferences(readTextLines(*bytes));
}

std::optional<NewFolderFiles> cabFiles(const EngineRecord& source, const PathGlobals& paths,
                                       std::u16string& cabName, Services& services) {
    const std::optional<EngineReferences> references = sourceReferences(source, services);
    if (!references) return std::nullopt;
    if (!references->cabView || references->cabLineFaulty) {
        reportFileError(enginePath(source), services);
        return std::nullopt;
    }
    cabName = *references->cabView;
    const std::string name = toUtf8(cabName);
    if (!isPlainName(name, enginePath(source), services)) return std::nullopt;
    std::optional<NewFile> cvf = aliasedCopy(source, "CABVIEW", name, paths, services);
    if (!cvf) return std::nullopt;
    return NewFolderFiles{"CABVIEW", ".CVF", {std::move(*cvf)}};
}

std::optional<NewFolderFiles> soundFiles(const EngineRecord& source, const PathGlobals& paths,
                                         std::u16string& engineSound, std::u16string& cabSound,
                                         Services& services) {
    const std::optional<EngineReferences> references = sourceReferences(source, services);
    if (!references) return std::nullopt;
    if (references->sounds.size() < 2) {
        reportFileError(enginePath(source), services);
        return std::nullopt;
    }
    engineSound = references->sounds[0];
    cabSound = references->sounds[1];
    NewFolderFiles sounds{"SOUND", ".SMS", {}};
    for (const std::u16string& sound : {engineSound, cabSound}) {
        const std::string name = toUtf8(sound);
        if (!isPlainName(name, enginePath(source), services)) return std::nullopt;
        // One file may be both the engine and the cab sound: it is written once.
        if (!sounds.files.empty() && upperAscii(sounds.files.front().name) == upperAscii(name))
            continue;
        std::optional<NewFile> sms = aliasedCopy(source, "SOUND", name, paths, services);
        if (!sms) return std::nullopt;
        sounds.files.push_back(std::move(*sms));
    }
    return sounds;
}

std::u16string cabViewLine(std::u16string_view name) {
    const bool quoted = name.find(u' ') != std::u16string_view::npos;
    std::u16string line = u"\tCabView ( ";
    if (quoted) line += u'"';
    line += name;
    if (quoted) line += u'"';
    return line + u" )";
}

std::u16string soundLine(std::u16string_view name) {
    return u"\tSound ( \"" + std::u16string(name) + u"\" )";
}

// The target's files of a sub-folder that the new ones replace, as on disk.
std::vector<std::string> replacedFiles(const EngineRecord& target, const NewFolderFiles& part,
                                       FileSystem& fs) {
    std::vector<std::string> names;
    for (const DirEntry& entry : fs.listFolder(joinPath(target.folderPath, part.sub)))
        if (!entry.isFolder && hasExtension(entry.name, part.upperExtension))
            names.push_back(entry.name);
    return names;
}

// Refuses to remove or replace a file that another ".eng" of the target's folder names.
bool othersKeepTheirFiles(const EngineRecord& target, const NewFolderFiles& part,
                          const std::vector<NamedFile>& named, Services& services) {
    std::vector<std::string> touched;
    for (const std::string& name : replacedFiles(target, part, services.fs))
        touched.push_back(upperAscii(name));
    for (const NewFile& file : part.files)
        touched.push_back(upperAscii(file.name));
    for (const NamedFile& other : named) {
        for (const std::string& name : touched) {
            if (name != other.upperName) continue;
            services.dialogs.report(
                "The file " + name + " in " + joinPath(target.folderPath, part.sub) +
                    " is named by " + other.engineFile +
                    " as well, and aliasing would remove or replace it.\nNothing was changed.",
                Icon::Exclamation);
            return false;
        }
    }
    return true;
}

// Moves the replaced files to the trash and writes the new ones; false (told) on a failure.
bool replaceFolderFiles(const EngineRecord& target, const NewFolderFiles& part,
                        Services& services) {
    const auto fail = [&](const std::string& why) {
        services.dialogs.report(std::string(kAliasFailed) + "\n" + why, Icon::Stop);
        return false;
    };
    const std::string folder = services.fs.resolve(joinPath(target.folderPath, part.sub));
    if (!services.fs.isFolder(folder) && !services.fs.createFolder(folder))
        return fail("The folder " + folder + " could not be made.");
    for (const std::string& name : replacedFiles(target, part, services.fs)) {
        if (!services.desktop.moveToTrash(joinPath(folder, name)))
            return fail("The file " + joinPath(folder, name) + " could not be moved to the " +
                        std::string(kTrashName) + ".");
    }
    for (const NewFile& file : part.files) {
        const std::string path = joinPath(folder, file.name);
        if (WriteResult written = services.fs.writeFile(path, file.bytes); !written)
            return fail("The file " + path + " could not be written: " + written.message);
    }
    return true;
}

}  // namespace

AliasOutcome aliasFromEngine(const AliasLists& lists, const EngineAliasChoice& choice,
                             const UnitCatalogue& catalogue, const PathGlobals& paths,
                             Services& services) {
    if (!choicesComplete(lists, choice, services)) return AliasOutcome::Refused;
    const EngineRecord* target = findAliasEngine(catalogue, choice.target);
    const bool cabInUse = choice.cabSource != kNoAlias;
    const bool soundInUse = choice.soundSource != kNoAlias;
    const EngineRecord* cabSource =
        cabInUse ? findAliasEngine(catalogue, choice.cabSource) : nullptr;
    const EngineRecord* soundSource =
        soundInUse ? findAliasEngine(catalogue, choice.soundSource) : nullptr;
    if (!target || (cabInUse && !cabSource) || (soundInUse && !soundSource)) {
        services.dialogs.report(kAliasFailed, Icon::Stop);
        return AliasOutcome::Refused;
    }

    EngineLineRule rule;
    rule.soundNeedsQuotes = true;
    std::vector<NewFolderFiles> parts;
    if (cabInUse) {
        std::u16string cabName;
        std::optional<NewFolderFiles> cab = cabFiles(*cabSource, paths, cabName, services);
        if (!cab) return AliasOutcome::Refused;
        rule.firstCabLine = rule.laterCabLine = cabViewLine(cabName);
        parts.push_back(std::move(*cab));
    }
    if (soundInUse) {
        std::u16string engineSound, cabSound;
        std::optional<NewFolderFiles> sounds =
            soundFiles(*soundSource, paths, engineSound, cabSound, services);
        if (!sounds) return AliasOutcome::Refused;
        rule.firstSoundLine = soundLine(engineSound);
        rule.laterSoundLine = soundLine(cabSound);
        parts.push_back(std::move(*sounds));
    }

    const std::optional<std::string> oldBytes = readOrReport(enginePath(*target), services);
    if (!oldBytes) return AliasOutcome::Refused;
    const EngineRewrite rewrite = rewriteEngineLines(readTextLines(*oldBytes), rule);
    if (rewrite.faultyLine) {
        reportFileError(services.fs.resolve(enginePath(*target)), services);
        return AliasOutcome::Refused;
    }
    const std::vector<NamedFile> named = namesOfOtherEngines(*target, services.fs);
    for (const NewFolderFiles& part : parts) {
        if (!folderIsOwn(joinPath(target->folderPath, part.sub), services) ||
            !othersKeepTheirFiles(*target, part, named, services))
            return AliasOutcome::Refused;
    }
    if (!backupIsFree(*target, choice.backup, services)) return AliasOutcome::Refused;

    if (!writeAliasedEngine(*target, *oldBytes, writeTextLines(rewrite.lines), choice.backup,
                            services))
        return AliasOutcome::Refused;
    for (const NewFolderFiles& part : parts)
        if (!replaceFolderFiles(*target, part, services)) return AliasOutcome::Failed;
    reportAliased(services);
    return AliasOutcome::Done;
}

}  // namespace rakeyard
