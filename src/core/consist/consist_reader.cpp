#include "core/consist/consist_reader.h"

#include <algorithm>
#include <optional>
#include <span>
#include <unordered_map>

#include "core/consist/consist_model.h"
#include "core/consist/image_keys.h"
#include "core/consist/slot_view.h"
#include "core/msts/msts_text.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::size_t kUnicodeFirstLine = 32;  // the mark's two characters and the header's 30
constexpr int kHeaderLines = 8;
constexpr auto npos = std::u16string_view::npos;

bool holds(std::u16string_view line, std::u16string_view part) {
    return line.find(part) != npos;
}

std::string utf8(std::u16string_view text) {
    return toUtf8(text);
}

// The text from 0-based start, count characters long, cut at the line's end.
std::u16string_view mid(std::u16string_view line, std::size_t start, std::size_t count) {
    if (start >= line.size()) return {};
    return line.substr(start, count);
}

// The catalogue as an index of upper-cased file names, first record of a name winning.
class CatalogueIndex {
public:
    explicit CatalogueIndex(std::span<const UnitRecord> records) : records_(records) {}
    const UnitRecord* find(const std::string& fileName) {
        if (!built_) build();
        const auto it = byName_.find(upperAscii(fileName));
        return it == byName_.end() ? nullptr : &records_[it->second];
    }

private:
    void build() {
        for (std::size_t i = 0; i < records_.size(); ++i)
            byName_.emplace(upperAscii(records_[i].fileName), i);
        built_ = true;
    }
    std::span<const UnitRecord> records_;
    std::unordered_map<std::string, std::size_t> byName_;
    bool built_ = false;
};

// The text between the first "(" and the next ")", trimmed; nullopt without them.
std::optional<std::u16string> headerValue(std::u16string_view line) {
    const std::size_t open = line.find(u'(');
    if (open == npos) return std::nullopt;
    const std::size_t close = line.find(u')', open + 1);
    if (close == npos) return std::nullopt;
    return trimBlanks(line.substr(open + 1, close - open - 1));
}

// The TrainCfg word; nullopt for a line with a single double quote.
std::optional<std::u16string> trainCfgWord(std::u16string_view line) {
    const std::size_t quote = line.find(u'"');
    if (quote != npos) {
        const std::size_t next = line.find(u'"', quote + 1);
        if (next == npos) return std::nullopt;
        return trimBlanks(line.substr(quote + 1, next - quote - 1));
    }
    const std::size_t open = line.find(u'(');
    return trimBlanks(open == npos ? line : line.substr(open + 1));
}

// Reads the body lines into units by the editor's own rules: a line with three tabs and
// "EngineData", "WagonData" or "UiD", the line "\t\t\tFlip ( )", and "\t\t)" ending a unit.
class BodyReader {
public:
    explicit BodyReader(std::vector<EditorUnit>& units) : units_(units) {}

    // Applies every rule that matches the line; false for a damaged line.
    [[nodiscard]] bool read(std::u16string_view line) {
        const bool indented = holds(line, u"\t\t\t");
        if (indented && holds(line, u"EngineData") && !unitData(line, true)) return false;
        if (indented && holds(line, u"WagonData") && !unitData(line, false)) return false;
        if (indented && holds(line, u"UiD") && !uid(line)) return false;
        if (line == u"\t\t\tFlip ( )") current().flipped = true;
        if (line == u"\t\t)") {
            current().ended = true;
            open_ = false;
        }
        return true;
    }

private:
    EditorUnit& current() {
        if (!open_) units_.emplace_back();
        open_ = true;
        return units_.back();
    }

    // The file word: from behind "(" up to the first blank that stands at least three characters
    // on, so that a one-letter word runs on into the folder word.
    static std::optional<std::u16string> fileWord(std::u16string_view line) {
        const std::size_t open = line.find(u'(');
        if (open == npos) return std::nullopt;
        const std::size_t blank = line.find(u' ', open + 4);
        if (blank == npos) return std::nullopt;
        std::u16string word = trimBlanks(mid(line, open + 1, blank - open));
        if (!word.empty() && word.front() == u'"') {
            const std::size_t close = line.find(u'"', open + 3);
            if (close != npos) word = trimBlanks(mid(line, open + 1, close - open));
            if (word.size() >= 2) word = word.substr(1, word.size() - 2);
        }
        return word;
    }

    bool unitData(std::u16string_view line, bool isEngine) {
        const std::optional<std::u16string> found = fileWord(line);
        if (!found) return false;
        ConsistFileUnit data;
        data.isEngine = isEngine;
        data.file.text = utf8(*found);
        current().data.push_back(std::move(data));
        return true;
    }

    bool uid(std::u16string_view line) {
        const std::size_t open = line.find(u'(');
        if (open == npos) return false;
        const std::size_t blank = line.find(u' ', open + 2);
        if (blank == npos) return false;
        current().uid = utf8(trimBlanks(mid(line, open + 1, blank - open)));
        current().hasUid = true;
        return true;
    }

    std::vector<EditorUnit>& units_;
    bool open_ = false;
};

// Puts the units read into the slots, each tied to its catalogue unit by file name regardless of
// case; a unit past slot 599 is counted but not stored.
class SlotFiller {
public:
    explicit SlotFiller(const ConsistContext& app)
        : app_(app),
          engines_(usedRecords(app.catalogue, UnitClass::Engine)),
          wagons_(usedRecords(app.catalogue, UnitClass::Wagon)) {}

    void fill(const std::vector<EditorUnit>& units) {
        for (std::size_t n = 0; n < units.size(); ++n) {
            ConsistSlot* target = n < kConsistSlots ? &app_.consist.slots[n] : nullptr;
            const EditorUnit& unit = units[n];
            for (const ConsistFileUnit& data : unit.data)
                place(data, target);
            if (target && unit.hasUid) target->uid = toSingle(numberValue(toUtf16(unit.uid)));
            if (target && unit.ended) end(*target, unit.flipped, n);
        }
    }
    float lengthTotal = 0;
    float massTotal = 0;

private:
    void place(const ConsistFileUnit& data, ConsistSlot* target) {
        const std::string word = data.file.text + (data.isEngine ? ".eng" : ".wag");
        const UnitRecord* unit = data.isEngine ? engines_.find(word) : wagons_.find(word);
        if (!unit) {
            if (target) {
                target->imageKey = "NOTFOUND";
                target->displayName = utf8Left(word, utf8Length(word) - 4);
            }
            return;
        }
        if (target) copyCatalogueFields(*target, *unit, data.isEngine);
        lengthTotal = round2(double(lengthTotal) + unit->length);
        massTotal = round2(double(massTotal) + unit->mass);
        if (!data.isEngine) changeWagonCount(app_.consist.totals, 1);
    }

    static void end(ConsistSlot& target, bool flipped, std::size_t n) {
        if (flipped) {
            target.flipped = true;
            const std::string_view stem = stemOfType(target.unitType);
            if (!stem.empty()) target.imageKey = std::string(stem) + "INV";
        }
        target.position = static_cast<std::int16_t>(n + 1);
    }

    const ConsistContext& app_;
    CatalogueIndex engines_;
    CatalogueIndex wagons_;
};

void reportCriticalError(Dialogs& dialogs) {
    dialogs.report("This consist contains an error.\nPlease test it!", Icon::Stop,
                   "Critical error");
}

void startLoad(ConsistState& state) {
    ++state.replaced;
    state.totals.wagons = "0";
    state.currentPage = 0;
    for (ConsistSlot& slot : state.slots)
        clearSlot(slot);
}

enum class HeaderEnd { Body, NameError, Critical };

// Reads the header lines behind line 1; next is left at the first line of the body.
HeaderEnd readHeader(EditorConsistRead& read, const std::vector<std::u16string>& lines,
                     std::size_t& next) {
    ConsistFileHeader& header = read.header;
    for (int count = 0; count < kHeaderLines && next < lines.size(); ++count) {
        const std::u16string_view line = lines[next++];
        if (holds(line, u"TrainCfg")) {
            if (auto word = trainCfgWord(line)) {
                header.trainCfg.text = utf8(*word);
                read.seen.trainCfg = true;
            }
        }
        if (holds(line, u"Name")) {
            const ConsistName name = nameOfLine(line);
            header.name = utf8(name.name);
            read.seen.name = true;
            if (name.inError) return HeaderEnd::NameError;
        }
        if (!holds(line, u"\t\t")) continue;
        if (holds(line, u"MaxVelocity (")) {
            const auto value = headerValue(line);
            if (!value) return HeaderEnd::Critical;
            header.maxVelocity = utf8(*value);
            read.seen.maxVelocity = true;
        }
        if (holds(line, u"Durability (")) {
            const auto value = headerValue(line);
            if (!value) return HeaderEnd::Critical;
            header.durability = utf8(*value);
            read.seen.durability = true;
            break;
        }
        if (holds(line, u"Serial (")) {
            const auto value = headerValue(line);
            if (!value) return HeaderEnd::Critical;
            header.serial = utf8(*value);
            read.seen.serial = true;
        }
    }
    return HeaderEnd::Body;
}

// How many blocks are still open at the end of the lines, "(" and ")" inside double quotes not
// counted.
long long openBlocksAtEnd(const std::vector<std::u16string>& lines) {
    long long depth = 0;
    for (const std::u16string& line : lines) {
        bool quoted = false;
        for (char16_t c : line) {
            if (c == u'"') quoted = !quoted;
            if (quoted) continue;
            if (c == u'(') ++depth;
            if (c == u')' && depth > 0) --depth;
        }
    }
    return depth;
}

// What of the file the editor could not take, one line a reason; "" when it took it all.
std::string notLoadedPart(std::string_view bytes, const TextLines& file, long long units) {
    std::string reasons;
    if (units > kUsedSlots)
        reasons += "It holds " + std::to_string(units) + " units: only the first " +
                   std::to_string(kUsedSlots) + " were loaded, " +
                   std::to_string(units - kUsedSlots) + " were left out.\n";
    if (file.hasMark && bytes.size() % 2 == 1)
        reasons += "The file ends in the middle of a character.\n";
    if (const long long open = openBlocksAtEnd(file.lines); open > 0)
        reasons += "The file ends early, after line " + std::to_string(file.lines.size()) +
                   ", with " + std::to_string(open) + " block(s) not closed.\n";
    if (!reasons.empty()) reasons.pop_back();
    return reasons;
}

// "N units of this consist are not installed: a, b, c and M more."; "" when all are.
std::string notInstalledUnits(const ConsistState& state) {
    constexpr int kNamesShown = 3;
    int count = 0;
    std::string names;
    for (int i = 0; i < kUsedSlots; ++i) {
        if (state.slots[i].imageKey != "NOTFOUND") continue;
        if (++count <= kNamesShown) names += (count > 1 ? ", " : "") + state.slots[i].displayName;
    }
    if (count == 0) return {};
    std::string text = count == 1 ? "1 unit of this consist is not installed: "
                                  : std::to_string(count) +
                                        " units of this consist are not "
                                        "installed: ";
    text += names;
    if (count > kNamesShown) text += " and " + std::to_string(count - kNamesShown) + " more";
    return text + ".";
}

std::size_t findConsistsFolder(std::string_view path) {
    for (std::size_t i = 0; i + 9 < path.size(); ++i) {
        if (isPathSeparator(path[i]) && path.substr(i + 1, 8) == "CONSISTS" &&
            isPathSeparator(path[i + 9]))
            return i;
    }
    return std::string_view::npos;
}

std::string withoutLastFour(std::string_view text) {
    const std::size_t length = utf8Length(text);
    return length < 4 ? std::string() : utf8Left(text, length - 4);
}

}  // namespace

ConsistName nameOfLine(std::u16string_view line) {
    ConsistName result;
    const std::size_t quote = line.find(u'"');
    if (quote != npos) {
        const std::size_t next = line.find(u'"', quote + 1);
        if (next == npos) {
            result.inError = true;
            return result;
        }
        result.name = trimBlanks(line.substr(quote + 1, next - quote - 1));
        return result;
    }
    const std::size_t open = line.find(u'(');
    const std::size_t from = open == npos ? 0 : open + 1;
    const std::size_t close = line.find(u')', from);
    if (close == npos) {
        result.inError = true;
        return result;
    }
    result.name = trimBlanks(line.substr(from, close - from));
    result.inError = result.name.find(u' ') != npos;
    return result;
}

std::string consistNameOf(std::string_view path) {
    const std::size_t folder = findConsistsFolder(path);
    if (folder == std::string_view::npos) return withoutLastFour(lastPathPart(path));
    return withoutLastFour(path.substr(folder + 10));
}

EditorConsistRead readConsistForEditor(std::string_view bytes) {
    EditorConsistRead read;
    const TextLines file = textLines(bytes);
    if (file.firstLineLength() != kUnicodeFirstLine) {
        read.fault = EditorConsistRead::Fault::NotUnicode;
        return read;
    }
    std::size_t next = 1;
    switch (readHeader(read, file.lines, next)) {
        case HeaderEnd::NameError:
            read.fault = EditorConsistRead::Fault::NameError;
            return read;
        case HeaderEnd::Critical:
            read.fault = EditorConsistRead::Fault::Critical;
            return read;
        case HeaderEnd::Body:
            break;
    }
    BodyReader body(read.units);
    for (; next < file.lines.size(); ++next) {
        if (!body.read(file.lines[next])) {
            read.fault = EditorConsistRead::Fault::Critical;
            return read;
        }
    }
    const auto ended = std::count_if(read.units.begin(), read.units.end(),
                                     [](const EditorUnit& unit) { return unit.ended; });
    read.notLoaded = notLoadedPart(bytes, file, static_cast<long long>(ended));
    return read;
}

LoadOutcome loadConsistBytes(const ConsistContext& app, Dialogs& dialogs, std::string_view bytes) {
    ConsistState& state = app.consist;
    startLoad(state);
    const EditorConsistRead read = readConsistForEditor(bytes);
    const ConsistFileHeader& header = read.header;
    if (read.seen.trainCfg) state.trainCfgWord = header.trainCfg.text;
    if (read.seen.name) state.header.name = header.name;
    if (read.seen.maxVelocity) state.header.maxVelocity = header.maxVelocity;
    if (read.seen.durability) state.header.durability = header.durability;
    if (read.seen.serial) state.header.serial = header.serial;
    SlotFiller filler(app);
    filler.fill(read.units);
    switch (read.fault) {
        case EditorConsistRead::Fault::NotUnicode:
            dialogs.report("This consist isn't in Unicode format!", Icon::Stop);
            return LoadOutcome::Failed;
        case EditorConsistRead::Fault::NameError:
            dialogs.report("There is an error in the name of this consist!", Icon::Stop);
            return LoadOutcome::Failed;
        case EditorConsistRead::Fault::Critical:
            reportCriticalError(dialogs);
            return LoadOutcome::Failed;
        case EditorConsistRead::Fault::None:
            break;
    }
    setMassText(state.totals, singleText(filler.massTotal));
    setLengthText(state.totals, singleText(filler.lengthTotal));
    // Told before the strip shows the units, so that a cut consist is never taken for whole and
    // missing units are not found one page at a time.
    if (const std::string missing = notInstalledUnits(state); !missing.empty())
        dialogs.report(missing, Icon::Exclamation);
    if (!read.notLoaded.empty())
        dialogs.report("Not all of this consist could be loaded.\n" + read.notLoaded,
                       Icon::Exclamation);
    refreshPics(state);
    return read.notLoaded.empty() ? LoadOutcome::Loaded : LoadOutcome::Incomplete;
}

LoadOutcome loadConsistFile(const ConsistContext& app, Services& services) {
    ConsistState& state = app.consist;
    if (state.consistToLoad.empty()) return LoadOutcome::NoFile;
    addToLastMenu(state.recent, state.consistToLoad);
    startLoad(state);
    state.header.fileName = consistNameOf(state.consistToLoad);
    state.header.name.clear();

    const std::string path = services.fs.resolve(state.consistToLoad);
    if (!services.fs.isFile(path)) {
        const Answer answer =
            services.dialogs.ask("This consist does not exist! Do you wish to create a new one?",
                                 Buttons::OkCancel, Icon::Stop, Answer::Cancel);
        if (answer == Answer::Ok) {
            clearAll(state);
            state.header.fileName = withoutLastFour(lastPathPart(state.consistToLoad));
        } else {
            state.header.fileName.clear();
        }
        return LoadOutcome::NoFile;
    }
    // A file that can't be read reads as no lines, and so fails the Unicode test.
    const std::string bytes = services.fs.readFile(path).value_or(std::string());
    return loadConsistBytes(app, services.dialogs, bytes);
}

}  // namespace rakeyard
