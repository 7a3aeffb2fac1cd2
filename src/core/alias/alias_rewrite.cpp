#include "core/alias/alias_rewrite.h"

#include "core/msts/msts_lines.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::size_t kInsideBlockLines = 6;  // lines behind "Inside" that belong to it
constexpr std::u16string_view kQuote = u"\"";

// Passes over the "Inside" line and the lines of its block.
class InsideBlock {
public:
    // True when the line belongs to an "Inside" block, its first line included.
    bool skips(std::u16string_view working) {
        if (left_ > 0) {
            --left_;
            return true;
        }
        if (!firstWordIs(working, u"INSIDE")) return false;
        left_ = kInsideBlockLines;
        return true;
    }

private:
    std::size_t left_ = 0;
};

// The word begins its line behind a tab or four blanks, as the folder aliases ask.
bool indentedByTabOrFourBlanks(std::u16string_view line) {
    const std::size_t word = line.find_first_not_of(u" \t");
    if (word == std::u16string_view::npos || word == 0) return false;
    return line[word - 1] == u'\t' || (word >= 4 && line.substr(word - 4, 4) == u"    ");
}

bool hasParens(std::u16string_view line) {
    const std::size_t open = line.find(u'(');
    return open != std::u16string_view::npos && line.find(u')', open) != std::u16string_view::npos;
}

// The text between the first two quotes; nullopt when there are not two.
std::optional<std::u16string_view> firstQuoted(std::u16string_view line) {
    const std::size_t open = line.find(u'"');
    if (open == std::u16string_view::npos) return std::nullopt;
    const std::size_t close = line.find(u'"', open + 1);
    if (close == std::u16string_view::npos) return std::nullopt;
    return line.substr(open + 1, close - open - 1);
}

std::u16string withoutQuotes(std::u16string_view text) {
    const std::u16string trimmed = trimBlanks(text);
    std::u16string_view name = trimmed;
    if (name.size() >= 2 && name.front() == u'"' && name.back() == u'"')
        name = name.substr(1, name.size() - 2);
    return trimBlanks(name);
}

// True when upper[from, to) holds ".WAV".
bool holdsWav(std::u16string_view upper, std::size_t from, std::size_t to) {
    return upper.substr(from, to - from).find(u".WAV") != std::u16string_view::npos;
}

std::u16string joinParts(std::u16string_view working, std::u16string_view tail) {
    std::u16string line(working);
    line += tail;
    return line;
}

}  // namespace

EngineReferences readEngineReferences(const std::vector<std::u16string>& lines) {
    EngineReferences found;
    InsideBlock inside;
    for (const std::u16string& line : lines) {
        const LineParts parts = splitCommentTail(line);
        if (parts.isComment || inside.skips(parts.working)) continue;
        if (!found.cabView && !found.cabLineFaulty && firstWordIs(parts.working, u"CABVIEW")) {
            const std::size_t open = parts.working.find(u'(');
            const std::size_t close =
                open == std::u16string_view::npos ? open : parts.working.find(u')', open);
            if (close == std::u16string_view::npos) {
                found.cabLineFaulty = true;
            } else {
                found.cabView = withoutQuotes(parts.working.substr(open + 1, close - open - 1));
            }
        }
        if (found.sounds.size() < 2 && !found.soundLineFaulty &&
            firstWordIs(parts.working, u"SOUND")) {
            if (const auto name = firstQuoted(parts.working)) {
                found.sounds.push_back(trimBlanks(*name));
            } else {
                found.soundLineFaulty = true;
            }
        }
    }
    return found;
}

EngineRewrite rewriteEngineLines(const std::vector<std::u16string>& lines,
                                 const EngineLineRule& rule) {
    EngineRewrite result;
    result.lines.reserve(lines.size());
    InsideBlock inside;
    bool cabSeen = false;
    bool soundSeen = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const LineParts parts = splitCommentTail(lines[i]);
        const std::optional<std::u16string>* replacement = nullptr;
        bool quotesNeeded = false;
        if (!parts.isComment && !inside.skips(parts.working) &&
            (!rule.indentedOnly || indentedByTabOrFourBlanks(parts.working))) {
            if (rule.firstCabLine && firstWordIs(parts.working, u"CABVIEW")) {
                replacement = cabSeen ? &rule.laterCabLine : &rule.firstCabLine;
                cabSeen = true;
            } else if (rule.firstSoundLine && firstWordIs(parts.working, u"SOUND")) {
                replacement = soundSeen ? &rule.laterSoundLine : &rule.firstSoundLine;
                soundSeen = true;
                quotesNeeded = rule.soundNeedsQuotes;
            }
        }
        if (!replacement || !*replacement) {
            result.lines.push_back(lines[i]);
            continue;
        }
        if (!hasParens(parts.working) || (quotesNeeded && !firstQuoted(parts.working))) {
            result.faultyLine = i;
            return result;
        }
        result.lines.push_back(joinParts(**replacement, parts.tail));
        ++result.changedLines;
    }
    return result;
}

std::optional<std::vector<std::u16string>> prefixAceNames(const std::vector<std::u16string>& lines,
                                                          std::u16string_view prefix) {
    std::vector<std::u16string> out;
    out.reserve(lines.size());
    for (const std::u16string& line : lines) {
        const LineParts parts = splitCommentTail(line);
        if (parts.isComment || upperAscii(parts.working).find(u".ACE") == std::u16string::npos) {
            out.push_back(line);
            continue;
        }
        const std::size_t open = parts.working.find(u'(');
        if (open == std::u16string_view::npos) return std::nullopt;
        std::size_t cut = open + 1;
        if (cut < parts.working.size() &&
            (parts.working[cut] == u' ' || parts.working[cut] == u'\t'))
            ++cut;
        const std::u16string right = trimBlanks(parts.working.substr(cut));
        std::u16string working(parts.working.substr(0, cut));
        if (right.starts_with(kQuote)) {
            working.append(kQuote).append(prefix).append(right.substr(1));
        } else {
            working.append(prefix).append(right);
        }
        out.push_back(joinParts(working, parts.tail));
    }
    return out;
}

std::optional<std::vector<std::u16string>> prefixWavNames(const std::vector<std::u16string>& lines,
                                                          std::u16string_view prefix) {
    std::vector<std::u16string> out;
    out.reserve(lines.size());
    for (const std::u16string& line : lines) {
        const LineParts parts = splitCommentTail(line);
        const std::u16string upper = upperAscii(parts.working);
        if (parts.isComment || upper.find(u".WAV") == std::u16string::npos) {
            out.push_back(line);
            continue;
        }
        std::u16string working;
        std::size_t done = 0;  // characters of the working part copied so far
        for (std::size_t open = upper.find(u'"'); open != std::u16string::npos;
             open = upper.find(u'"', done)) {
            const std::size_t close = upper.find(u'"', open + 1);
            if (close == std::u16string::npos) break;
            if (holdsWav(upper, done, open)) return std::nullopt;  // outside quotes
            working.append(parts.working.substr(done, open + 1 - done));
            if (holdsWav(upper, open + 1, close)) working.append(prefix);
            working.append(parts.working.substr(open + 1, close - open));
            done = close + 1;
        }
        if (holdsWav(upper, done, upper.size())) return std::nullopt;
        working.append(parts.working.substr(done));
        out.push_back(joinParts(working, parts.tail));
    }
    return out;
}

}  // namespace rakeyard
