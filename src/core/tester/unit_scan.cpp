#include "core/tester/unit_scan.h"

#include "core/msts/text_lines.h"
#include "core/msts/unit_file.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

bool UnitScan::scan() {
    const UnitRecord& unit = names_.unit;
    run_.unitShown = names_.P;
    // The buffers are kept from unit to unit: a run reads thousands of them.
    static thread_local std::string bytes;
    static thread_local std::u16string text;
    if (!readInside(context_.services.fs, context_.paths.mstsPath, unit.folderPath, unit.fileName,
                    kUnitFileSizeLimit, bytes))
        return false;
    // The lines are read in UTF-16 LE bytes as they lie in the file, behind its mark; 8-bit
    // text is turned into such bytes first, and an odd last byte is a character of its own.
    std::size_t begin = 2;
    if (bytes.size() < 2 || bytes[0] != '\xFF' || bytes[1] != '\xFE') {
        decodeLineText(bytes, text);
        bytes.assign(reinterpret_cast<const char*>(text.data()), text.size() * 2);
        begin = 0;
    }
    if ((bytes.size() - begin) % 2) bytes.push_back('\0');
    const char* utf16 = bytes.data() + begin;
    const std::size_t units = (bytes.size() - begin) / 2;
    for (std::size_t start = 0; start < units;) {
        const std::size_t end = nextLineEnd(utf16, units, start);
        context_.host.yield();
        letters_ = searchKey(utf16 + 2 * start, end - start, lineKey_);
        if (!checkLine(utf16 + 2 * start, end - start, lineKey_)) break;
        context_.host.yield();
        start = end + 1;
        if (start < units && utf16[2 * start] == '\n' && utf16[2 * start + 1] == 0) ++start;
    }
    run_.filesTestedText = std::to_string(run_.counts.filesTested) + " files tested";
    return true;
}

// Reading rules first: comment and mark lines are passed over, and the rest of a line after
// either is cut. The line is decoded only when a check looks at it: most are passed by their
// key. False when the reading ends here.
bool UnitScan::checkLine(const char* utf16, std::size_t units, std::string_view key) {
    constexpr std::uint32_t kComment = lettersOf("COMMENT");
    std::size_t keep = units;
    if ((letters_ & kComment) == kComment) {
        if (const std::size_t at = firstOf(key, "COMMENT")) {
            if (at + 6 <= 9) return true;  // the word stands whole in the first nine characters
            keep = at - 1;
        }
    }
    // The blank in front of a "#_" mark goes with it.
    if (const std::size_t at = firstOf(key.substr(0, keep), "#_")) {
        if (at + 1 <= 9) return true;  // the mark stands whole in the first nine characters
        keep = at - 2;
    }
    key_ = key.substr(0, keep);
    raw_ = utf16;
    rawUnits_ = keep;
    lineReady_ = false;
    if (passedOver()) return true;
    return lineChecks() == Reading::GoOn;
}

void UnitScan::ensureLine() {
    if (lineReady_) return;
    decodeUnits(raw_, rawUnits_, L_);
    line_ = L_;
    lineReady_ = true;
}

std::string UnitScan::shownL() {
    ensureLine();
    L_ = shownLine(line_);
    line_ = L_;
    letters_ = searchKey(L_, ownKey_);
    key_ = ownKey_;
    return toUtf8(L_);
}

std::string UnitScan::parenthesisFinding(const std::string& head, std::string_view word,
                                         std::string_view example, std::string_view fixedWord) {
    const std::string line = shownL();
    const std::string fixed(fixedWord.empty() ? word : fixedWord);
    return head + "has missing parenthesis in the line \"" + std::string(word) + "\"." +
           std::string(kEnd) + "The error was found on this line: " + line + std::string(kEnd) +
           "HINT: Edit this file and search for a line like: " + std::string(word) + " ( " +
           std::string(example) + std::string(kEnd) +
           "and add the missing parenthesis so it will be like: " + fixed + " ( " +
           std::string(example) + " )" + std::string(kEnd) + std::string(kEnterHint);
}

void UnitScan::takeValue(std::size_t open, std::size_t close) {
    if (auto value = cut(line_, open + 1, static_cast<long long>(close) - open - 1))
        V_ = trimmed(*value);
}

void UnitScan::stripQuotes() {
    if (V_.size() >= 2 && V_.front() == u'"') V_ = V_.substr(1, V_.size() - 2);
}

void UnitScan::shape(std::string_view mark, const std::string& afterFolder) {
    stripQuotes();
    lookUpShape(mark, "The shape file ", afterFolder, ErrorCategory::Shapes);
    testShapeDef(run_, context_, names_, V_);
}

void UnitScan::freightAnimation(const std::string& syntaxHead) {
    ensureLine();
    std::size_t open = firstOf(line_, u"(");
    std::size_t close = lastOf(key_, ".S");
    if (open == 0 || close == 0) {
        report(kSyntax, parenthesisFinding(syntaxHead, "FreightAnim", "yourshapefile.s"),
               ErrorCategory::Syntax, ErrorLevel::Serious);
        if (close == 0) {
            open = 10;
            close = line_.size();
        }
    }
    if (auto value = cut(line_, open + 1, static_cast<long long>(close) - open + 1))
        V_ = trimmed(*value);
    if (!V_.empty() && V_.front() == u'"') V_.erase(0, 1);
    lookUpShape("[ANIMATION SHAPE FILE]", "The animation shape file ",
                std::string(kEnd) + names_.P, ErrorCategory::AnimationShape);
}

// V, a shape in the unit's folder: logged and counted, and a finding when it is missing.
void UnitScan::lookUpShape(std::string_view mark, std::string_view what,
                           const std::string& afterFolder, ErrorCategory category) {
    const std::uintmax_t size = sizeInside(context_.services.fs, context_.paths.mstsPath,
                                           names_.unit.folderPath, toUtf8(V_));
    run_.testedShapes.push_back(V());
    ++run_.counts.filesTested;
    if (size != 0) return;
    const std::string line = shownL();
    report(mark,
           std::string(what) + V() + " specified by the file " + names_.F + std::string(kEnd) +
               "is missing from the folder " + afterFolder + std::string(kEnd) +
               "The error was found on this line: " + line,
           category, ErrorLevel::Minor);
}

// A lookup that fails in the unit's SOUND folder is made again in the main one; a file of no
// bytes there is no failure, and counts as missing.
Lookup UnitScan::lookUpSoundDefinition() {
    const std::string name = V();
    Lookup found = lookUpInside(context_.services.fs, context_.paths.mstsPath,
                                names_.unit.folderPath, "SOUND\\" + name);
    if (found.failure != LookupFailure::None) found = lookUpMainSound(context_, name);
    return found;
}

void UnitScan::wrongSyntaxWhenUnbalanced(std::string_view word, std::string_view inFolder) {
    const bool first = !V_.empty() && V_.front() == u'"';
    const bool last = !V_.empty() && V_.back() == u'"';
    if (first == last) return;
    const std::string line = shownL();
    report(kSyntax,
           "The \"" + std::string(word) + "\" line specified by the file " + names_.F +
               std::string(kEnd) + std::string(inFolder) + names_.D + " has the wrong syntax!" +
               std::string(kEnd) + "The error was found on this line: " + line,
           ErrorCategory::Syntax, ErrorLevel::Minor);
}

}  // namespace rakeyard
