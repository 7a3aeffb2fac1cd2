#include "core/msts/msts_text.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>

#include "core/msts/text_scan.h"
#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

constexpr std::size_t kHeaderLineLength = 32;
constexpr int kLastMatchCount = 50;  // a 52nd match ends the search

bool isBlankOrTab(char16_t c) {
    return c == u' ' || c == u'\t';
}

// The first line of a file that starts with FF FE, counted as its zero bytes were dropped.
// Counting stops early once the line is too long to pass.
std::size_t utf16FirstLineLength(std::string_view bytes) {
    std::size_t length = 0;
    for (std::size_t i = 0; i + 1 < bytes.size() && length <= kHeaderLineLength; i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        if (low == 0x0D && high == 0) return length;
        length += (low != 0) + (high != 0);
    }
    if (bytes.size() % 2 == 1 && bytes.back() != '\0' && bytes.back() != '\r') ++length;
    return length;
}

std::size_t eightBitFirstLineLength(std::string_view bytes) {
    std::size_t length = 0;
    for (char c : bytes) {
        if (c == '\r' || length > kHeaderLineLength) break;
        if (c != '\0') ++length;
    }
    return length;
}

// True when only blanks and tabs stand between the line's start and the 1-based pos.
bool beginsLine(std::u16string_view text, std::size_t pos) {
    for (std::size_t i = pos - 1; i > 0; --i) {
        const char16_t c = text[i - 1];
        if (c == u'\n') return true;
        if (!isBlankOrTab(c)) return false;
    }
    return true;
}

bool onlyBlanksBetween(std::u16string_view text, std::size_t first, std::size_t last) {
    for (std::size_t i = first; i <= last; ++i) {
        if (!isBlankOrTab(text[i - 1])) return false;
    }
    return true;
}

// The first start at or after at (0-based) of the needle, or npos.
// Keywords begin with letters that are everywhere in an upper-cased text, but their first two
// characters together are rare: eight starts are tested at once for those.
std::size_t findAt(std::u16string_view text, std::u16string_view needle, std::size_t at) {
    const std::size_t last = text.size() - needle.size();  // the last start that fits
    const auto matchesAt = [&](std::size_t i) { return text.substr(i, needle.size()) == needle; };
    if (needle.size() >= 2 && std::endian::native == std::endian::little) {
        using namespace text_scan;
        for (; at + 8 <= last; at += 8) {
            unsigned starts = charsEqual(loadBlock(&text[at]), needle[0]) &
                              charsEqual(loadBlock(&text[at + 1]), needle[1]);
            while (starts != 0) {
                const unsigned k = firstChar(starts);
                if (matchesAt(at + k)) return at + k;
                starts &= ~(3u << (2 * k));
            }
        }
    }
    for (; at <= last; ++at) {
        at = text.find(needle[0], at);
        if (at == std::u16string_view::npos || at > last) return std::u16string_view::npos;
        if (matchesAt(at)) return at;
    }
    return std::u16string_view::npos;
}

}  // namespace

bool isUnicodeText(std::string_view bytes) {
    const bool hasMark = bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE';
    const std::size_t length =
        hasMark ? utf16FirstLineLength(bytes) : eightBitFirstLineLength(bytes);
    return length == kHeaderLineLength;
}

bool isUnicodeFile(FileSystem& fs, const std::string& path) {
    const std::optional<std::string> bytes = fs.readFile(path);
    return bytes && isUnicodeText(*bytes);
}

std::string encodeMstsText(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    bytes.reserve(2 + 2 * text.size());
    for (char16_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    return bytes;
}

MstsText decodeMstsText(std::string_view bytes) {
    MstsText text(decodedLengthLimit(bytes), u'\0');
    text.resize(decodeMstsText(bytes, text.data()));
    return text;
}

// A CR becomes CR LF, whose LF then becomes CR LF: three characters; a lone LF two.
std::size_t decodeMstsText(std::string_view bytes, char16_t* const text) {
    const std::size_t units = bytes.size() / 2;
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    char16_t* out = text;
    const auto put = [&out](char16_t c) {
        if (c == u'\r') {
            *out++ = u'\r';
            *out++ = u'\r';
            *out++ = u'\n';
        } else if (c == u'\n') {
            *out++ = u'\r';
            *out++ = u'\n';
        } else {
            *out++ = c == u'\t' ? u' ' : c;
        }
    };
    std::size_t i = 0;
    if constexpr (std::endian::native == std::endian::little) {
        // Eight characters at a time while none is a CR or LF: the bytes are the characters
        // already, and tabs become blanks in place.
        using namespace text_scan;
        for (; i + 8 <= units; i += 8) {
            const Block block = loadBlock(data + 2 * i);
            if (charsEqual(block, u'\r') | charsEqual(block, u'\n')) {
                for (std::size_t k = i; k < i + 8; ++k)
                    put(static_cast<char16_t>(data[2 * k] | (data[2 * k + 1] << 8)));
                continue;
            }
            storeBlock(out, replaceChars(block, u'\t', u' '));
            out += 8;
        }
    }
    for (; i < units; ++i)
        put(static_cast<char16_t>(data[2 * i] | (data[2 * i + 1] << 8)));
    return static_cast<std::size_t>(out - text);
}

MstsText readMstsText(FileSystem& fs, const std::string& path) {
    const std::optional<std::string> bytes = fs.readFile(path);
    return bytes ? decodeMstsText(*bytes) : MstsText();
}

MstsText upperText(std::u16string_view text) {
    return upperAscii(text);
}

std::size_t findFrom(std::u16string_view text, std::u16string_view needle, std::size_t from) {
    if (from == 0) from = 1;
    if (needle.empty() || from > text.size() || needle.size() > text.size() - (from - 1)) return 0;
    const std::size_t found = findAt(text, needle, from - 1);
    return found == std::u16string_view::npos ? 0 : found + 1;
}

std::size_t findLastUpTo(std::u16string_view text, std::u16string_view needle, std::size_t upTo) {
    if (needle.empty() || upTo < needle.size()) return 0;
    if (upTo > text.size()) upTo = text.size();
    const std::size_t found = text.rfind(needle, upTo - needle.size());
    return found == std::u16string_view::npos ? 0 : found + 1;
}

KeywordMatch findKeywordLine(std::u16string_view upperText, std::u16string_view keyword,
                             std::size_t startPos, std::u16string_view retryKeyword) {
    std::size_t pos = findFrom(upperText, keyword, startPos);
    std::size_t length = keyword.size();
    for (int passedOver = 0; pos != 0; ++passedOver) {
        if (passedOver > kLastMatchCount) return {KeywordOutcome::LimitReached};
        if (!beginsLine(upperText, pos)) {
            const std::u16string_view next = retryKeyword.empty() ? keyword : retryKeyword;
            pos = findFrom(upperText, next, pos + 1);
            length = next.size();
            continue;
        }
        const std::size_t end = pos + length - 1;
        const std::size_t paren = findFrom(upperText, u"(", end);
        // Without any "(" behind it no later match can be followed by one either.
        if (paren == 0) return {KeywordOutcome::NotFound};
        if (onlyBlanksBetween(upperText, end + 1, paren - 1))
            return {KeywordOutcome::Found, pos, paren};
        pos = findFrom(upperText, keyword, paren + 1);
        length = keyword.size();
    }
    return {KeywordOutcome::NotFound};
}

std::u16string parenValue(std::u16string_view text, std::size_t parenPos, std::size_t* closePos) {
    const std::size_t close = parenPos == 0 ? 0 : findFrom(text, u")", parenPos);
    if (closePos) *closePos = close;
    if (close == 0) return {};
    return trimBlanks(text.substr(parenPos, close - parenPos - 1));
}

std::u16string lineValue(std::u16string_view text, std::size_t parenPos) {
    if (parenPos == 0 || parenPos > text.size()) return {};
    const std::size_t lineEnd = findFrom(text, u"\n", parenPos);
    const std::size_t stop = lineEnd == 0 ? text.size() : lineEnd - 1;
    std::u16string value(text.substr(parenPos, stop - parenPos));
    for (char16_t& c : value) {
        if (c == u'\r' || c == u'\n') c = u' ';
    }
    return trimBlanks(value);
}

}  // namespace rakeyard
