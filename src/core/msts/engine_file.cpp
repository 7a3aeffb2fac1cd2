#include <exception>

#include "core/msts/unit_file_steps.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

using namespace unit_file;

const UnitWords kEngineWords{"engine",
                             "engines",
                             " - Engines",
                             {"Removing DESCRIPTION - Engines", "Removing COMMENTS - Engines",
                              "Removing special coupling types - Engines"}};

// The engine section is looked for from this position of the text behind the couplers on.
constexpr std::size_t kEngineSearchStart = 100;

const CouplerTexts kEngineCouplerTexts{"(Rear coupler section)", " (Rear coupler)",
                                       "(Coupler section)",
                                       " and so it couldn't be added to the engines list."};

bool readEngineType(WorkingText& text, FileSteps& steps) {
    steps.stepTitle("ENGINE line");
    const std::size_t engine = findFrom(text.upper(), u"ENGINE ", kEngineSearchStart);
    if (engine == 0) {
        steps.log("Cannot locate the line \"Engine\" in the file " + steps.file +
                  " and so it couldn't be added to the engines list.");
        return false;
    }
    steps.title("TYPE line (Engine section)");
    const KeywordMatch line = findKeywordLine(text.upper(), u"TYPE ", engine, u"TYPE");
    if (line.outcome == KeywordOutcome::NotFound) {
        steps.log("Cannot locate the line \"Type (\" in the file " + steps.file +
                  "(Engine section) and so it couldn't be added to the engines list.");
        return false;
    }
    if (line.outcome == KeywordOutcome::LimitReached) {
        steps.log(steps.errorOnLine("Type") + std::string(kCrLf) +
                  "and so it couldn't be added to the engines list.");
        return false;
    }
    std::size_t close = 0;
    const std::u16string type = parenValue(text.text(), line.parenPos, &close);
    text.cutThrough(close);
    const std::u16string upper = upperAscii(type);
    if (upper == u"STEAM" || upper == u"DIESEL" || upper == u"ELECTRIC") {
        steps.result.record.unitType = toUtf8(type);
    } else {
        steps.result.record.unitType = "????????";
        steps.log("The engine " + steps.file + " contains an invalid engine type in the line " +
                  "\"Type\"." + std::string(kCrLf) +
                  "Please edit this file and make the necessary corrections!");
    }
    return true;
}

bool readMaxPower(WorkingText& text, FileSteps& steps) {
    steps.stepTitle("MAXPOWER line");
    const KeywordMatch line = findKeywordLine(text.upper(), u"MAXPOWER", 1);
    if (line.outcome == KeywordOutcome::NotFound) {
        steps.log("Cannot locate the line \"MaxPower (\" in the file " + steps.file);
        return true;
    }
    if (line.outcome == KeywordOutcome::LimitReached) {
        steps.log(steps.errorOnLine("MaxPower") + std::string(kCrLf) +
                  "and so it couldn't be added to the engines list.");
        return false;
    }
    std::u16string power = parenValue(text.text(), line.parenPos);
    const std::size_t comment = power.find(u'#');
    if (comment != std::u16string::npos) power = trimBlanks(power.substr(0, comment));
    steps.result.record.maxPower = toUtf8(power);
    return true;
}

// An engine has a cab when a ".cvf" stands up to the ")" of its first "CabView" line.
bool hasCabView(const WorkingText& text) {
    const std::size_t cabView = findFrom(text.upper(), u"CABVIEW");
    if (cabView == 0) return false;
    const std::size_t close = findFrom(text.upper(), u")", cabView);
    return close != 0 && findLastUpTo(text.upper(), u".CVF", close) != 0;
}

bool readEngineText(std::optional<std::string_view> bytes, FileSteps& steps, UnitText& decoded) {
    if (!prepareText(bytes, steps, true, " isn't a Unicode file!", decoded)) return false;
    WorkingText text(decoded);
    if (!readWagonLine(text, steps, " ", ".eng")) return false;
    if (!readShapeSizeMass(text, steps)) return false;

    UnitRecord& record = steps.result.record;
    const bool hasCouplings =
        findFrom(text.upper(), u"COUPLING") != 0 || findFrom(text.upper(), u"BUFFERS") != 0;
    if (hasCouplings) {
        if (!readCouplers(text, steps, kEngineCouplerTexts)) return false;
    } else {
        record.couplerFront = "?";
        record.couplerRear = "?";
    }
    if (!readEngineType(text, steps)) return false;
    if (!readMaxPower(text, steps)) return false;
    record.hasCab = hasCabView(text);
    return readDisplayName(text, steps, record.displayName);
}

}  // namespace

UnitFileResult readEngineFile(std::optional<std::string_view> bytes, const std::string& file,
                              const std::string& folderPath, bool withPassTitles,
                              UnitText& buffers) {
    UnitFileResult result;
    FileSteps steps(file, folderPath, kEngineWords, result, withPassTitles);
    try {
        result.accepted = readEngineText(bytes, steps, buffers);
    } catch (const std::exception&) {
        // Only a file too big for memory gets here.
        result.accepted = false;
        steps.log("There is an error in the file " + file);
    }
    return result;
}

}  // namespace rakeyard
