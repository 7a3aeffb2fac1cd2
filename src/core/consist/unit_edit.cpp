#include "core/consist/unit_edit.h"

#include "core/consist/consist_model.h"
#include "core/msts/msts_lines.h"
#include "core/msts/msts_text.h"
#include "core/platform/file_names.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::size_t npos = std::u16string::npos;

std::u16string u16(std::string_view utf8) {
    return toUtf16(utf8);
}

bool commentBefore(const std::u16string& upper, std::size_t at) {
    const std::size_t comment = upper.find(u"COMMENT");
    return comment != npos && comment < at;
}

// The paren depth a line adds.
int depthChange(std::u16string_view line) {
    int depth = 0;
    for (char16_t c : line)
        depth += c == u'(' ? 1 : c == u')' ? -1 : 0;
    return depth;
}

// Puts text between the first "(" and the last ")" of the line, in place of what stood there.
bool replaceParenText(std::u16string& line, const std::u16string& text) {
    const std::size_t open = line.find(u'(');
    const std::size_t close = line.rfind(u')');
    if (open == npos || close == npos || close < open) return false;
    std::size_t first = open + 1;
    std::size_t last = close;
    while (first < last && (line[first] == u' ' || line[first] == u'\t'))
        ++first;
    while (last > first && (line[last - 1] == u' ' || line[last - 1] == u'\t'))
        --last;
    if (first == last) {  // nothing stood there: the text goes in with blanks round it
        line = line.substr(0, open + 1) + u" " + text + u" " + line.substr(close);
        return true;
    }
    line.replace(first, last - first, text);
    return true;
}

class Rewriter {
public:
    Rewriter(const UnitEdit& edit, bool isEngine) : edit_(edit), isEngine_(isEngine) {}

    void run(std::vector<std::u16string>& lines, std::vector<std::string>& messages) {
        bool couplingOver = false;
        int couplingsHandled = 0;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::u16string upper = upperAscii(lines[i]);
            if (upper.find(u"BRAKEEQUIPMENTTYPE") != npos) couplingOver = true;
            const std::size_t coupling = upper.find(u"COUPLING (");
            if (coupling != npos && !couplingOver && couplingsHandled < 2 &&
                !commentBefore(upper, coupling)) {
                const std::string& box = couplingsHandled == 0 ? edit_.rear : edit_.front;
                ++couplingsHandled;
                i = changeCouplingType(lines, i, box, messages);
                continue;
            }
            changeValue(lines[i], upper, messages);
        }
    }

private:
    // Looks for the block's Type line behind line `start`, inside the block only. Returns the
    // last line looked at.
    std::size_t changeCouplingType(std::vector<std::u16string>& lines, std::size_t start,
                                   const std::string& box, std::vector<std::string>& messages) {
        int depth = depthChange(lines[start]);
        for (std::size_t i = start + 1; i < lines.size(); ++i) {
            if (depth <= 0) return i - 1;
            const std::u16string upper = upperAscii(lines[i]);
            const std::size_t type = upper.find(u"TYPE (");
            if (type != npos && !commentBefore(upper, type)) {
                if (!box.empty() && !replaceParenText(lines[i], u16(box)))
                    messages.push_back("The Coupling could not be changed!");
                return i;
            }
            depth += depthChange(lines[i]);
        }
        return lines.size() - 1;
    }

    void changeValue(std::u16string& line, const std::u16string& upper,
                     std::vector<std::string>& messages) {
        const std::u16string keyword = isEngine_ ? u"MAXPOWER (" : u"MASS (";
        // The keyword as a word of its own: DieselUsedPerHourAtMaxPower is no power line.
        std::size_t at = upper.find(keyword);
        while (at != npos && at > 0 && upper[at - 1] != u' ' && upper[at - 1] != u'\t' &&
               upper[at - 1] != u'(')
            at = upper.find(keyword, at + 1);
        if (at == npos || commentBefore(upper, at) || edit_.value.empty()) return;
        const std::size_t close = line.find(u')', at);
        if (close == npos) {
            messages.push_back(isEngine_ ? "The Power could not be changed!"
                                         : "The Weight could not be changed!");
            return;
        }
        const std::u16string value =
            isEngine_ ? u"MaxPower ( " + u16(edit_.value + edit_.powerUnit) + u" )"
                      : u"Mass ( " + u16(edit_.value) + u"t )";
        line = line.substr(0, at) + value + line.substr(close + 1);
    }

    const UnitEdit& edit_;
    bool isEngine_;
};

// The first line with "NAME (", else "NAME(", else "NAME" takes the name from there to its end;
// with none, a Name line goes in as the last line of the outer block.
void changeName(std::u16string& text, const std::string& name) {
    const std::u16string line = u"Name ( \"" + u16(name) + u"\" )";
    const std::u16string upper = upperAscii(text);
    std::size_t at = upper.find(u"NAME (");
    if (at == npos) at = upper.find(u"NAME(");
    if (at == npos) at = upper.find(u"NAME");
    if (at != npos) {
        std::size_t end = text.find(u'\n', at);
        if (end == npos) end = text.size();
        std::size_t keep = end;  // the line's own end (CR) stays
        while (keep > at &&
               (text[keep - 1] == u'\r' || text[keep - 1] == u' ' || text[keep - 1] == u'\t'))
            --keep;
        text.replace(at, keep - at, line);
        return;
    }
    const std::size_t last = text.rfind(u')');
    if (last == npos || last == 0) return;
    const std::size_t before = text.rfind(u')', last - 1);
    if (before == npos) return;
    text = text.substr(0, before + 1) + u"\r\n\t" + line + u"\r\n)" + text.substr(last + 1);
}

UnitEditOutcome writeUnitFile(UnitRecord& unit, const UnitEdit& edit, bool isEngine,
                              Services& services) {
    if (edit.name.find('"') != std::string::npos) {
        services.dialogs.report("The name may not hold a double quote (\").", Icon::Stop);
        return UnitEditOutcome::Refused;
    }
    if (!isValidFileName(unit.fileName) || unit.folderPath.empty()) {
        services.dialogs.report("The unit's file " + unit.fileName + " cannot be changed.",
                                Icon::Stop);
        return UnitEditOutcome::Refused;
    }
    const std::string path = joinPath(unit.folderPath, unit.fileName);
    const std::optional<std::string> bytes = services.fs.readFile(path);
    if (!bytes) {
        services.dialogs.report("The file " + path + " could not be read: nothing was changed.",
                                Icon::Stop);
        return UnitEditOutcome::Refused;
    }
    const UnitRewrite rewrite = rewriteUnitFile(*bytes, edit, isEngine);
    const WriteResult written = services.fs.writeFile(path, rewrite.bytes);
    if (!written) {
        services.dialogs.report("The file " + path + " could not be written:\n" + written.message,
                                Icon::Stop);
        return UnitEditOutcome::Refused;
    }
    for (const std::string& message : rewrite.messages)
        services.dialogs.report(message, Icon::Stop);
    if (!edit.rear.empty()) unit.couplerRear = couplerCode(edit.rear);
    if (!edit.front.empty()) unit.couplerFront = couplerCode(edit.front);
    unit.displayName = edit.name;
    if (isEngine)
        unit.maxPower = edit.value + edit.powerUnit;
    else
        unit.mass = static_cast<float>(numberValue(edit.value));
    return rewrite.messages.empty() ? UnitEditOutcome::Written
                                    : UnitEditOutcome::WrittenWithMessages;
}

}  // namespace

UnitRewrite rewriteUnitFile(std::string_view bytes, const UnitEdit& edit, bool isEngine) {
    UnitRewrite rewrite;
    std::vector<std::u16string> lines = readTextLines(bytes);
    Rewriter(edit, isEngine).run(lines, rewrite.messages);
    std::u16string text;
    for (const std::u16string& line : lines)
        text += line + u"\r\n";
    changeName(text, edit.name);
    rewrite.bytes = "\xFF\xFE";
    for (char16_t c : text) {
        rewrite.bytes += static_cast<char>(c & 0xFF);
        rewrite.bytes += static_cast<char>(c >> 8);
    }
    return rewrite;
}

UnitEditOutcome writeToEngFile(UnitRecord& unit, const UnitEdit& edit, Services& services) {
    return writeUnitFile(unit, edit, true, services);
}

UnitEditOutcome writeToWagFile(UnitRecord& unit, const UnitEdit& edit, Services& services) {
    return writeUnitFile(unit, edit, false, services);
}

UnitEdit editOfUnit(const UnitRecord& unit, bool isEngine) {
    UnitEdit edit{unit.displayName, couplerText(unit.couplerFront), couplerText(unit.couplerRear),
                  "", ""};
    if (!isEngine) {
        edit.value = singleText(unit.mass);
        return edit;
    }
    std::string value = upperAscii(unit.maxPower);
    edit.powerUnit = value.find("KW") != std::string::npos   ? "kW"
                     : value.find("HP") != std::string::npos ? "Hp"
                                                             : "";
    for (const char* word : {"KW", "HP"})
        for (std::size_t at = value.find(word); at != std::string::npos; at = value.find(word))
            value.replace(at, 2, "  ");
    edit.value = trimBlanks(value);
    return edit;
}

std::string couplerCode(std::string_view text) {
    if (text == "Automatic") return "A";
    if (text == "Bar") return "B";
    if (text == "Chain") return "C";
    return {};
}

std::string couplerText(std::string_view code) {
    if (code == "A") return "Automatic";
    if (code == "B") return "Bar";
    if (code == "C") return "Chain";
    return {};
}

}  // namespace rakeyard
