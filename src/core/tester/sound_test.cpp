// The sound definition test: an .sms names its .wav files on its File lines, each in the unit's
// SOUND folder, the folder an aliased definition lies in, or the main sound folder.
#include <string>

#include "core/msts/text_lines.h"
#include "core/msts/unit_file.h"
#include "core/platform/text_utf.h"
#include "core/tester/unit_scan.h"

namespace rakeyard {

namespace {

std::u16string_view afterLastSeparator(std::u16string_view name) {
    const std::size_t cut = name.find_last_of(u"/\\");
    return cut == std::u16string_view::npos ? name : name.substr(cut + 1);
}

// The text between the first double quote of text and the next; nothing without both.
std::optional<std::u16string_view> quoted(std::u16string_view text) {
    const std::size_t q1 = text.find(u'"');
    if (q1 == std::u16string_view::npos) return std::nullopt;
    const std::size_t q2 = text.find(u'"', q1 + 1);
    if (q2 == std::u16string_view::npos) return std::nullopt;
    return text.substr(q1 + 1, q2 - q1 - 1);
}

class SoundTest {
public:
    SoundTest(TestRun& run, const TestContext& context, const UnitNames& names,
              std::u16string_view smsName)
        : run_(run), context_(context), names_(names), sms_(smsName) {
        // The path part of an aliased definition, up to its last separator.
        const std::size_t cut = sms_.find_last_of(u"/\\");
        if (cut != std::u16string::npos) M_ = sms_.substr(0, cut + 1);
        aliased_ = contains(sms_, u"../") || contains(sms_, u"..\\");
    }

    void run();

private:
    void testLine(std::u16string_view line);
    std::uintmax_t size(const std::string& folder, std::u16string_view name) {
        return lookUpInside(context_.services.fs, context_.paths.mstsPath, folder, toUtf8(name))
            .size;
    }
    std::uintmax_t inUnitSound(std::u16string_view name) {
        return size(names_.unit.folderPath, u"SOUND\\" + Line(name));
    }
    // Steps shared by both files of a line: the unit's SOUND folder (the aliased one when the
    // definition is aliased), then the main sound folder; false for the second when it wasn't
    // asked there.
    std::uintmax_t firstLookups(std::u16string_view wav, bool& askedMain);
    void missing(std::u16string_view wav, const std::string& place, std::u16string_view line);

    TestRun& run_;
    const TestContext& context_;
    const UnitNames& names_;
    Line sms_;
    Line M_;
    bool aliased_ = false;
    Line clause_;  // kept from line to line: a clause that can't be cut stays as it was
};

void SoundTest::run() {
    FileSystem& fs = context_.services.fs;
    const std::string sms = toUtf8(sms_);
    static thread_local std::string bytes;
    static thread_local std::u16string text;
    LookupFailure failure = readLookupInside(fs, context_.paths.mstsPath, names_.unit.folderPath,
                                             "SOUND\\" + sms, kUnitFileSizeLimit, bytes);
    if (failure == LookupFailure::FileNotFound || failure == LookupFailure::PathNotFound)
        failure = readMainSound(context_, sms, bytes);
    if (failure != LookupFailure::None) {
        reportError(run_, context_, "[MISSING SOUND DEFINITION FILE]",
                    "The sound definition file " + sms + " from the unit " + names_.F +
                        std::string(kEnd) + "does not exist in the folder " + std::string(kEnd) +
                        names_.D + "SOUND" + std::string(kEnd) + "or in the main SOUND folder (" +
                        context_.paths.soundPath + ")",
                    ErrorCategory::Sounds, ErrorLevel::Minor);
        return;
    }
    (void)forEachTextLine(bytes, text, [this](std::u16string_view line) {
        context_.host.yield();
        testLine(line);
        return true;
    });
}

void SoundTest::testLine(std::u16string_view line) {
    std::string key;
    (void)searchKey(line, key);
    if (inFirst(key, 10, "SKIP")) return;
    const std::size_t p = firstOf(key, "FILE (");
    if (p == 0) return;
    if (p >= 3) clause_ = cutFrom(line, p - 2);
    const std::optional<std::u16string_view> first = quoted(clause_);
    if (!first) {
        reportError(run_, context_, kSyntax,
                    "The sound file " + toUtf8(sms_) + " belonging to the file " + names_.F +
                        " is missing the quotes enclosing a wav file in one of the lines." +
                        std::string(kEnd) + "The error was found on this line: " +
                        toUtf8(shownLine(line)),
                    ErrorCategory::Sounds, ErrorLevel::Serious);
        return;
    }
    const Line wav(*first);
    // A second file stands in what follows the first one's closing quote and six more.
    std::optional<Line> second;
    const long long q2 = static_cast<long long>(clause_.find(u'"', clause_.find(u'"') + 1)) + 1;
    const long long rest = static_cast<long long>(clause_.size()) - q2 - 6;
    if (rest >= 1) {
        if (auto other = quoted(std::u16string_view(clause_).substr(clause_.size() - rest)))
            second = Line(*other);
    }

    bool askedMain = false;
    std::uintmax_t found = firstLookups(wav, askedMain);
    if (found == 0) found = inUnitSound(M_ + wav);
    if (found == 0)
        missing(wav, M_.empty() ? " the aliased sound folder " : toUtf8(M_), line);
    if (second) {
        askedMain = false;
        if (firstLookups(*second, askedMain) == 0) {
            const std::u16string_view tail = afterLastSeparator(*second);
            missing(*second,
                    askedMain && !tail.empty() ? toUtf8(tail) : std::string(" (not specified)"),
                    line);
        }
    }
    run_.testedSounds.push_back(toUtf8(wav));
    if (second) run_.testedSounds.push_back(toUtf8(*second));
    ++run_.counts.filesTested;
}

std::uintmax_t SoundTest::firstLookups(std::u16string_view wav, bool& askedMain) {
    Line folder;
    if (aliased_) {
        folder = M_;
        for (std::size_t at = folder.find(u"\\\\"); at != Line::npos; at = folder.find(u"\\\\", at))
            folder.replace(at, 2, u"/");
    }
    std::uintmax_t found = inUnitSound(folder + Line(wav));
    if (found == 0 && !contains(wav, u"..")) {
        askedMain = true;
        found = lookUpMainSound(context_, toUtf8(afterLastSeparator(wav))).size;
    }
    return found;
}

void SoundTest::missing(std::u16string_view wav, const std::string& place,
                        std::u16string_view line) {
    reportError(run_, context_, "[SOUND FILE MISSING]",
                "The sound file " + toUtf8(wav) + " specified by the file " + toUtf8(sms_) +
                    " does not exist in the folder " + std::string(kEnd) + names_.D + "SOUND" +
                    std::string(kEnd) + "If this file is aliased it should exist in " + place +
                    " ." + std::string(kEnd) + "The error was found on this line: " +
                    std::string(kEnd) + toUtf8(shownLine(line)),
                ErrorCategory::Sounds, ErrorLevel::Serious);
}

// Where the main sound folder's names are looked up: the MSTS folder holds it, unless the
// settings put it elsewhere.
std::string mainSoundRoot(const PathGlobals& paths) {
    const bool inside = paths.soundPath.empty() || joinInside(paths.mstsPath, paths.soundPath, "x");
    return inside ? paths.mstsPath : paths.soundPath;
}

}  // namespace

void testSms(TestRun& run, const TestContext& context, const UnitNames& names,
             std::u16string_view smsName) {
    SoundTest(run, context, names, smsName).run();
}

Lookup lookUpMainSound(const TestContext& context, std::string_view name) {
    const PathGlobals& paths = context.paths;
    return lookUpInside(context.services.fs, mainSoundRoot(paths), paths.soundPath, name);
}

LookupFailure readMainSound(const TestContext& context, std::string_view name,
                            std::string& bytes) {
    const PathGlobals& paths = context.paths;
    return readLookupInside(context.services.fs, mainSoundRoot(paths), paths.soundPath, name,
                            kUnitFileSizeLimit, bytes);
}

}  // namespace rakeyard
