#include "core/msts/unit_file_steps.h"

#include "core/platform/paths.h"
#include "core/platform/progress.h"
#include "core/platform/text_utf.h"

namespace rakeyard::unit_file {

namespace {

constexpr std::size_t kNameLimit = 60;

// Hands the strip passes' titles to the file's list instead of a window.
class TitleCollector : public Progress {
public:
    explicit TitleCollector(FileSteps& steps) : steps_(steps) {}
    void start(std::string_view, int) override {}
    void step() override {}
    void debugText(int, std::string_view text) override { steps_.title(text); }

private:
    FileSteps& steps_;
};

std::u16string quotesToBlanks(std::u16string text) {
    for (char16_t& c : text) {
        if (c == u'"') c = u' ';
    }
    return trimBlanks(text);
}

char16_t upperChar(char16_t c) {
    return c >= u'a' && c <= u'z' ? char16_t(c - u'a' + u'A') : c;
}

// The file's name less its last four characters (the extension), cut to the name limit.
std::string nameFromFileName(const std::string& file) {
    const std::size_t length = utf8Length(file);
    const std::string stem = utf8Left(file, length >= 4 ? length - 4 : 0);
    return utf8Left(stem, kNameLimit);
}

}  // namespace

void WorkingText::cutThrough(std::size_t pos) {
    offset_ += std::min(pos, text_.size() - offset_);
}

void FileSteps::log(const std::string& text) {
    result.findings.push_back(text + std::string(kCrLf) + "Folder " + folder + std::string(kCrLf));
}

void FileSteps::title(std::string_view text) {
    result.passTitles.emplace_back(text);
}

std::string FileSteps::errorOnLine(std::string_view key) const {
    return "The " + std::string(words.unit) + " file " + file +
           " contains an error on the line \"" + std::string(key) + " (\"";
}

bool prepareText(std::optional<std::string_view> bytes, FileSteps& steps, bool cutDescription,
                 std::string_view notUnicode, UnitText& text) {
    if (!bytes) {
        steps.log("The file " + steps.file + " couldn't be read.");
        return false;
    }
    if (!isUnicodeText(*bytes)) {
        steps.log("The file " + steps.file + std::string(notUnicode));
        return false;
    }
    TitleCollector collector(steps);
    text.strip(*bytes, cutDescription, &steps.words.stripTitles,
               steps.withPassTitles() ? &collector : nullptr);
    return true;
}

bool readWagonLine(WorkingText& text, FileSteps& steps, std::string_view beforeAnd,
                   std::string_view extension) {
    steps.stepTitle("WAGON line");
    const KeywordMatch line = findKeywordLine(text.upper(), u"WAGON", 1);
    const std::string andSo =
        "and so it couldn't be added to the " + std::string(steps.words.list) + " list.";
    if (line.outcome == KeywordOutcome::NotFound) {
        steps.log("Cannot locate the line \"Wagon (\" in the file " + steps.file +
                  std::string(beforeAnd) + andSo);
        return false;
    }
    if (line.outcome == KeywordOutcome::LimitReached) {
        steps.log(steps.errorOnLine("Wagon") + andSo);
        return false;
    }
    const std::string name = toUtf8(quotesToBlanks(lineValue(text.text(), line.parenPos)));
    if (upperAscii(name + std::string(extension)) != upperAscii(steps.file)) {
        steps.log(steps.errorOnLine("Wagon") + andSo + std::string(kCrLf) +
                  "Most probably this line is stating a name different from its file name.");
        return false;
    }
    UnitRecord& record = steps.result.record;
    record = UnitRecord{};
    record.fileName = name + std::string(extension);
    record.folderPath = steps.folder;
    record.folderName = lastPathPart(steps.folder);
    steps.result.recordBegun = true;
    return true;
}

bool readShapeSizeMass(WorkingText& text, FileSteps& steps) {
    const std::string refusedTail =
        " and so it couldn't be added to the " + std::string(steps.words.list) + " list.";
    UnitRecord& record = steps.result.record;

    steps.stepTitle("WAGONSHAPE line");
    KeywordMatch line = findKeywordLine(text.upper(), u"WAGONSHAPE", 1);
    if (line.outcome == KeywordOutcome::NotFound) {
        steps.log("Cannot locate the line \"WagonShape (\" in the file " + steps.file);
    } else if (line.outcome == KeywordOutcome::LimitReached) {
        steps.log(steps.errorOnLine("WagonShape") + refusedTail);
        return false;
    } else {
        record.shapeName = toUtf8(parenValue(text.text(), line.parenPos));
    }

    steps.stepTitle("SIZE line");
    line = findKeywordLine(text.upper(), u"SIZE", 1);
    if (line.outcome == KeywordOutcome::NotFound) {
        steps.log("Cannot locate the line \"Size (\" in the file " + steps.file);
    } else if (line.outcome == KeywordOutcome::LimitReached) {
        steps.log(steps.errorOnLine("Size") + refusedTail);
        return false;
    } else {
        record.length = sizeLength(parenValue(text.text(), line.parenPos));
    }

    steps.stepTitle("MASS line");
    line = findKeywordLine(text.upper(), u"MASS", 1);
    if (line.outcome == KeywordOutcome::NotFound) {
        steps.log("Cannot locate the line \"Mass (\" in the file " + steps.file);
    } else if (line.outcome == KeywordOutcome::LimitReached) {
        steps.log(steps.errorOnLine("Mass") + refusedTail);
        return false;
    } else {
        std::size_t close = 0;
        record.mass = massValue(parenValue(text.text(), line.parenPos, &close));
        // The coupling, engine and name lines count only where they stand behind the mass.
        text.cutThrough(close);
    }
    return true;
}

bool readCouplers(WorkingText& text, FileSteps& steps, const CouplerTexts& texts) {
    // The findings are made only when needed: most files have none.
    const auto refuse = [&](KeywordOutcome outcome, std::string_view section,
                            std::string_view note) {
        if (outcome == KeywordOutcome::NotFound) {
            steps.log("Cannot locate the line \"Type (\" in the file " + steps.file +
                      std::string(section) + " and so it couldn't be added to the " +
                      std::string(steps.words.list) + " list.");
        } else {
            steps.log(steps.errorOnLine("Type") + std::string(note) + std::string(kCrLf) +
                      std::string(texts.limitTail));
        }
        return false;
    };
    UnitRecord& record = steps.result.record;
    steps.stepTitle("TYPE line (Rear coupler)");
    KeywordMatch line = findKeywordLine(text.upper(), u"TYPE", 1);
    if (line.outcome != KeywordOutcome::Found)
        return refuse(line.outcome, texts.rearSection, texts.rearNote);
    std::size_t close = 0;
    std::u16string type = parenValue(text.text(), line.parenPos, &close);
    record.couplerRear = couplerClass(type);
    text.cutThrough(close);

    // A second coupling block counts only before the adhesion or brake lines that follow the
    // couplings; with either missing the limit is 0 and the first block serves both ends.
    steps.stepTitle("Defining limits (Front coupler)");
    const std::size_t adhesion = findFrom(text.text(), u"Adheasion");
    const std::size_t brakes = findFrom(text.text(), u"BrakeEquipmentType");
    const std::size_t limit = adhesion < brakes ? adhesion : brakes;

    steps.stepTitle("COUPLING line (Front coupler)");
    const std::size_t coupling = findFrom(text.upper(), u"COUPLING");
    if (coupling > 0 && coupling < limit) {
        steps.stepTitle("TYPE line (Front coupler)");
        line = findKeywordLine(text.upper(), u"TYPE", coupling);
        if (line.outcome != KeywordOutcome::Found)
            return refuse(line.outcome, texts.frontSection, " (front coupler)");
        type = parenValue(text.text(), line.parenPos);
    }
    record.couplerFront = couplerClass(type);
    return true;
}

bool readDisplayName(WorkingText& text, FileSteps& steps, std::string& name) {
    steps.stepTitle("NAME line");
    if (findFrom(text.upper(), u"NAME") != 0) {
        const KeywordMatch line = findKeywordLine(text.upper(), u"NAME", 1);
        if (line.outcome == KeywordOutcome::LimitReached) {
            steps.log(steps.errorOnLine("Name") + std::string(kCrLf) +
                      "and so it couldn't be added to the " + std::string(steps.words.list) +
                      " list.");
            return false;
        }
        if (line.outcome == KeywordOutcome::Found) {
            name = toUtf8(trimBlanks(nameFromLine(lineValue(text.text(), line.parenPos))));
            return true;
        }
        // "Name" only inside other words: as if there were none.
    }
    name = trimBlanks(nameFromFileName(steps.file));
    return true;
}

std::string couplerClass(std::u16string_view type) {
    const std::u16string upper = upperAscii(type);
    if (upper == u"AUTOMATIC") return "A";
    if (upper == u"BAR") return "B";
    if (upper == u"CHAIN") return "C";
    return "?";
}

float sizeLength(std::u16string_view value) {
    std::u16string size(value);
    if (!size.empty() && upperChar(size.back()) == u'M') {
        size.pop_back();
        size = trimBlanks(size);
    }
    const std::size_t blank = size.rfind(u' ');
    const std::u16string_view length = blank == std::u16string::npos
                                           ? std::u16string_view(size)
                                           : std::u16string_view(size).substr(blank + 1);
    return round2(numberValue(length));
}

float massValue(std::u16string_view value) {
    std::u16string mass(value);
    if (mass.find(u'"') != std::u16string::npos) mass = quotesToBlanks(mass);
    if (!mass.empty() && upperChar(mass.back()) == u'T') mass.pop_back();
    return round2(numberValue(mass));
}

std::u16string nameFromLine(std::u16string_view lineText) {
    std::u16string name(lineText);
    // A ")" behind the last double quote closes the line: the last character goes. Without a
    // quote any ")" counts, so Name ( Foo ) gives Foo while Name ( Foo keeps its last letter.
    const std::size_t lastQuote = name.rfind(u'"');
    const std::size_t searchFrom = lastQuote == std::u16string::npos ? 0 : lastQuote + 1;
    if (name.find(u')', searchFrom) != std::u16string::npos) {
        name.pop_back();
        name = trimBlanks(name);
    }
    name = quotesToBlanks(name);
    if (name.size() > kNameLimit) name.resize(kNameLimit);
    return name;
}

}  // namespace rakeyard::unit_file

namespace rakeyard {

UnitFileResult tooLargeUnitFile(const std::string& file, const std::string& folderPath) {
    UnitFileResult result;
    result.findings.push_back(
        "The file " + file + " is larger than " + std::to_string(kUnitFileSizeLimit >> 20) +
        " MB, far more than a unit file holds, and so it wasn't read." +
        std::string(unit_file::kCrLf) + "Folder " + folderPath + std::string(unit_file::kCrLf));
    return result;
}

}  // namespace rakeyard
