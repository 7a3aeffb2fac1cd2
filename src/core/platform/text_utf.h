#pragma once
#include <string>
#include <string_view>

namespace rakeyard {

// The character of the UTF-8 sequence at text[i] and its length in bytes; length 0 when the
// bytes there are no well-formed sequence (overlong forms and surrogates included). The one
// UTF-8 decoder of the program.
struct Utf8Character {
    char32_t character = 0;
    std::size_t length = 0;
};
[[nodiscard]] Utf8Character utf8CharacterAt(std::string_view text, std::size_t i);

// Conversions between the UTF-16 text of MSTS files and the UTF-8 strings the rest of the
// program keeps. Unpaired surrogates and invalid bytes become U+FFFD.
std::string toUtf8(std::u16string_view text);
std::u16string toUtf16(std::string_view text);
// 8-bit text in the Windows-1252 code page: bytes 80-9F are its quotes, dashes, euro sign...,
// its five undefined bytes and every other byte keep their own value (Latin-1).
std::u16string fromWindows1252(std::string_view bytes);
// Characters (code points) in a UTF-8 string, and its first n characters.
std::size_t utf8Length(std::string_view text);
std::string utf8Left(std::string_view text, std::size_t count);
// ASCII upper case; other characters unchanged.
std::string upperAscii(std::string_view text);
std::u16string upperAscii(std::u16string_view text);
// The same into out, whose storage is kept: for text work line by line.
void upperAscii(std::u16string_view text, std::u16string& out);
// Blanks (and only blanks) removed at both ends, as the program's trim does.
std::string trimBlanks(std::string_view text);
std::u16string trimBlanks(std::u16string_view text);

}  // namespace rakeyard
