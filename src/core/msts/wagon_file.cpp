#include <exception>

#include "core/msts/unit_file_steps.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

using namespace unit_file;

const UnitWords kWagonWords{"wagon",
                            "wagons",
                            " - Wagons",
                            {"Removing DESCRIPTION - Wagons", "Removing COMMENTS - Wagons",
                             "Removing special coupling types - Wagons"}};

const CouplerTexts kWagonCouplerTexts{"(Rear coupler section)", " (rear coupler)",
                                      "(Front coupler section)",
                                      "and so it couldn't be added to the wagons list."};

// The first "Type (" of the file is the wagon's type; the text is not cut behind it.
bool readWagonType(const WorkingText& text, FileSteps& steps) {
    steps.stepTitle("TYPE line");
    const KeywordMatch line = findKeywordLine(text.upper(), u"TYPE", 1);
    if (line.outcome == KeywordOutcome::NotFound) {
        steps.log("Cannot locate the line \"Type (\" in the file " + steps.file +
                  " and so it couldn't be added to the wagons list.");
        return false;
    }
    if (line.outcome == KeywordOutcome::LimitReached) {
        steps.log(steps.errorOnLine("Type") + std::string(kCrLf) +
                  "and so it couldn't be added to the wagons list.");
        return false;
    }
    const std::u16string type = parenValue(text.text(), line.parenPos);
    const std::u16string upper = upperAscii(type);
    if (upper == u"FREIGHT" || upper == u"CARRIAGE" || upper == u"TENDER") {
        steps.result.record.unitType = toUtf8(type);
    } else {
        steps.result.record.unitType = "????????";
        steps.log("The wagon " + steps.file + " contains an invalid type in the line \"Type\"." +
                  std::string(kCrLf) + "Please edit this file and make the necessary corrections!");
    }
    return true;
}

bool readWagonText(std::optional<std::string_view> bytes, FileSteps& steps, UnitText& decoded) {
    // Descriptions stay: a word in one can be found by the searches below.
    if (!prepareText(bytes, steps, false, " isn't an Unicode file!", decoded)) return false;
    WorkingText text(decoded);
    // No blank before "and so" in the wagon reader's finding.
    if (!readWagonLine(text, steps, "", ".wag")) return false;
    if (!readWagonType(text, steps)) return false;
    if (!readDisplayName(text, steps, steps.result.record.displayName)) return false;
    if (!readShapeSizeMass(text, steps)) return false;
    return readCouplers(text, steps, kWagonCouplerTexts);
}

}  // namespace

UnitFileResult readWagonFile(std::optional<std::string_view> bytes, const std::string& file,
                             const std::string& folderPath, bool withPassTitles,
                             UnitText& buffers) {
    UnitFileResult result;
    FileSteps steps(file, folderPath, kWagonWords, result, withPassTitles);
    try {
        result.accepted = readWagonText(bytes, steps, buffers);
    } catch (const std::exception&) {
        // Only a file too big for memory gets here.
        result.accepted = false;
        steps.log("There has been an error in the file " + file);
    }
    return result;
}

}  // namespace rakeyard
