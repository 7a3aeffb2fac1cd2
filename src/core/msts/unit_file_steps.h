#pragma once
// The steps that the engine and the wagon reader share. Internal to the catalogue readers.
#include <string>
#include <string_view>

#include "core/msts/msts_text.h"
#include "core/msts/unit_file.h"

namespace rakeyard::unit_file {

inline constexpr std::string_view kCrLf = "\r\n";

// The stripped working text and its upper-cased twin, cut together. Positions are 1-based in
// what is left.
class WorkingText {
public:
    explicit WorkingText(const UnitText& text) : text_(text.text()), upper_(text.upper()) {}
    std::u16string_view text() const { return text_.substr(offset_); }
    std::u16string_view upper() const { return upper_.substr(offset_); }
    // Drops everything up to and including the 1-based pos; 0 drops nothing.
    void cutThrough(std::size_t pos);

private:
    std::u16string_view text_;
    std::u16string_view upper_;
    std::size_t offset_ = 0;
};

// The words in which the two readers' shared messages differ.
struct UnitWords {
    std::string_view unit;      // "engine"
    std::string_view list;      // "engines"
    std::string_view titleEnd;  // " - Engines"
    StripTitles stripTitles;    // "Removing DESCRIPTION - Engines", ...
};

// One file under way: its names, its findings and its pass titles.
class FileSteps {
public:
    FileSteps(const std::string& file, const std::string& folderPath, const UnitWords& words,
              UnitFileResult& result, bool withPassTitles)
        : file(file),
          folder(folderPath),
          words(words),
          result(result),
          withPassTitles_(withPassTitles) {}

    // text + CRLF + "Folder " + folder + CRLF, as a finding.
    void log(const std::string& text);
    void title(std::string_view text);  // a pass title as it stands
    void stepTitle(std::string_view stepName) {
        if (withPassTitles_) title(std::string(stepName) + std::string(words.titleEnd));
    }
    bool withPassTitles() const { return withPassTitles_; }

    // "The engine file X contains an error on the line \"Key (\"" (the common head).
    std::string errorOnLine(std::string_view key) const;

    const std::string& file;
    const std::string& folder;
    const UnitWords& words;
    UnitFileResult& result;

private:
    bool withPassTitles_;
};

// Checks, decodes and strips the bytes into text; "The file " + file + notUnicode is the finding
// when the file is not in Unicode. False when the file goes no further.
[[nodiscard]] bool prepareText(std::optional<std::string_view> bytes, FileSteps& steps,
                               bool cutDescription, std::string_view notUnicode, UnitText& text);

// The "Wagon (" line: its name must be the file's name. Begins the record on success. What
// stands between the file's name and "and so" when the line is missing: a blank or nothing.
[[nodiscard]] bool readWagonLine(WorkingText& text, FileSteps& steps, std::string_view beforeAnd,
                                 std::string_view extension);

// The shape, size and mass lines; the mass line cuts the text. False when one of them ends
// the file's reading.
[[nodiscard]] bool readShapeSizeMass(WorkingText& text, FileSteps& steps);

// The rear coupler from the first "Type (" and the front one from a second coupling block.
struct CouplerTexts {
    std::string_view rearSection;   // behind the file's name when the rear "Type (" is missing
    std::string_view rearNote;      // behind the line's name when the search reached its limit
    std::string_view frontSection;  // the same for the front coupler
    std::string_view limitTail;     // the last line of a finding at the limit
};
[[nodiscard]] bool readCouplers(WorkingText& text, FileSteps& steps, const CouplerTexts& texts);

// The display name from the "Name (" line, else the file name less its extension.
[[nodiscard]] bool readDisplayName(WorkingText& text, FileSteps& steps, std::string& name);

// "A", "B", "C" or "?" for a coupling type.
std::string couplerClass(std::u16string_view type);
// The length in a Size value: the last of its numbers, an "m" behind it dropped.
float sizeLength(std::u16string_view value);
// The mass in a Mass value: quotes and a "t" behind it dropped.
float massValue(std::u16string_view value);
// The display name made of a "Name (" line's value.
std::u16string nameFromLine(std::u16string_view lineText);

}  // namespace rakeyard::unit_file
