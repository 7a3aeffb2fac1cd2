#include "core/alias/alias_folder.h"

#include <vector>

#include "core/alias/alias_rewrite.h"
#include "core/msts/msts_lines.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

// The target, and the chosen files' references; nullopt (told) when any is unusable.
struct FolderAlias {
    const EngineRecord* target = nullptr;
    std::vector<std::u16string> references;
};

std::optional<FolderAlias> prepare(const std::string& target, const std::vector<std::string>& files,
                                   const UnitCatalogue& catalogue, const PathGlobals& paths,
                                   Services& services) {
    FolderAlias alias;
    alias.target = findAliasEngine(catalogue, target);
    if (!alias.target) {
        services.dialogs.report("You must provide an engine to alias!", Icon::Exclamation);
        return std::nullopt;
    }
    for (const std::string& file : files) {
        const std::optional<std::u16string> reference =
            folderAliasReference(paths, services.fs, file);
        if (!reference) {
            services.dialogs.report(kAliasFailed, Icon::Stop);
            return std::nullopt;
        }
        if (!services.fs.isFile(file)) {
            reportCannotOpen(file, services);
            return std::nullopt;
        }
        alias.references.push_back(*reference);
    }
    return alias;
}

// Rewrites and writes the target's ".eng" by the rule; false (told) when nothing was written.
bool rewriteTarget(const EngineRecord& target, const EngineLineRule& rule, std::string_view word,
                   bool backup, Services& services) {
    const std::optional<std::string> oldBytes = readOrReport(enginePath(target), services);
    if (!oldBytes) return false;
    const EngineRewrite rewrite = rewriteEngineLines(readTextLines(*oldBytes), rule);
    const std::string path = services.fs.resolve(enginePath(target));
    if (rewrite.faultyLine) {
        reportFileError(path, services);
        return false;
    }
    if (rewrite.changedLines == 0) {
        services.dialogs.report("No " + std::string(word) + " line of the file " + path +
                                    " stands behind a tab or four blanks, so none could take "
                                    "the alias.\nNothing was changed.",
                                Icon::Exclamation);
        return false;
    }
    return backupIsFree(target, backup, services) &&
           writeAliasedEngine(target, *oldBytes, writeTextLines(rewrite.lines), backup, services);
}

// The reason to keep a sub-folder of the engine: a chosen file in it, or a file in it that
// another ".eng" of the engine's folder names. "" when nothing needs it.
std::string stillNeeded(const EngineRecord& target, const std::string& folder,
                        const std::vector<std::string>& chosen, Services& services) {
    const std::string upperFolder = upperAscii(folder) + kPathSeparator;
    for (const std::string& file : chosen)
        if (upperAscii(services.fs.resolve(file)).starts_with(upperFolder))
            return "it holds the file " + services.fs.resolve(file) + " you chose.";
    const std::vector<NamedFile> named = namesOfOtherEngines(target, services.fs);
    for (const DirEntry& entry : services.fs.listFolder(folder)) {
        for (const NamedFile& other : named)
            if (!entry.isFolder && upperAscii(entry.name) == other.upperName)
                return other.engineFile + " uses its file " + entry.name + ".";
    }
    return {};
}

void offerToErase(const EngineRecord& target, const std::string& sub,
                  const std::vector<std::string>& chosen, Services& services) {
    const std::string folder = services.fs.resolve(joinPath(target.folderPath, sub));
    if (!services.fs.isFolder(folder)) return;
    if (const std::string reason = stillNeeded(target, folder, chosen, services); !reason.empty()) {
        services.dialogs.report("The sub-folder " + folder + " is kept: " + reason,
                                Icon::Information);
        return;
    }
    const Answer answer = services.dialogs.ask(
        "This engine contains a sub-folder no longer needed. Do you wish to erase it?",
        Buttons::YesNo, Icon::Question, Answer::No);
    if (answer == Answer::Yes && !services.desktop.moveToTrash(folder))
        services.dialogs.report(
            "The folder " + folder + " could not be moved to the " + std::string(kTrashName) + ".",
            Icon::Stop);
}

std::u16string quoted(std::u16string_view text) {
    return u"\"" + std::u16string(text) + u"\"";
}

}  // namespace

std::optional<std::u16string> folderAliasReference(const PathGlobals& paths, FileSystem& fs,
                                                   const std::string& file) {
    const std::optional<std::string> relative = relativeToTrainset(paths, fs, file);
    if (!relative) return std::nullopt;
    return trainsetReference(*relative);
}

AliasOutcome aliasCabsFromFolder(const std::string& target, const std::string& cvf, bool backup,
                                 const UnitCatalogue& catalogue, const PathGlobals& paths,
                                 Services& services) {
    if (target.empty()) {
        services.dialogs.report("You must provide an engine to alias!", Icon::Exclamation);
        return AliasOutcome::Refused;
    }
    if (cvf.empty()) return AliasOutcome::Refused;
    const std::optional<FolderAlias> alias = prepare(target, {cvf}, catalogue, paths, services);
    if (!alias) return AliasOutcome::Refused;
    EngineLineRule rule;
    rule.indentedOnly = true;
    rule.firstCabLine = u"\tCabView ( " + alias->references[0] + u" )";
    rule.laterCabLine = u"\tCabView (  )";
    if (!rewriteTarget(*alias->target, rule, "CabView", backup, services))
        return AliasOutcome::Refused;
    reportAliased(services);
    offerToErase(*alias->target, "CABVIEW", {cvf}, services);
    return AliasOutcome::Done;
}

AliasOutcome aliasSoundsFromFolder(const std::string& target, const std::string& engineSms,
                                   const std::string& cabSms, bool backup,
                                   const UnitCatalogue& catalogue, const PathGlobals& paths,
                                   Services& services) {
    if (target.empty()) {
        services.dialogs.report("You must provide an engine to alias!", Icon::Exclamation);
        return AliasOutcome::Refused;
    }
    if (!upperAscii(engineSms).ends_with("SMS") || !upperAscii(cabSms).ends_with("SMS")) {
        services.dialogs.report(
            "The set of two files needed for the aliasing of this engine is not complete!\nYou "
            "must choose one file for the cabview and two files for the sounds.",
            Icon::Exclamation);
        return AliasOutcome::Refused;
    }
    const std::optional<FolderAlias> alias =
        prepare(target, {engineSms, cabSms}, catalogue, paths, services);
    if (!alias) return AliasOutcome::Refused;
    EngineLineRule rule;
    rule.indentedOnly = true;
    rule.firstSoundLine = u"\tSound ( " + quoted(alias->references[0]) + u" )";
    rule.laterSoundLine = u"\tSound ( " + quoted(alias->references[1]) + u" )";
    if (!rewriteTarget(*alias->target, rule, "Sound", backup, services))
        return AliasOutcome::Refused;
    reportAliased(services);
    offerToErase(*alias->target, "SOUND", {engineSms, cabSms}, services);
    return AliasOutcome::Done;
}

}  // namespace rakeyard
