#include "core/settings/settings_editor.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "core/platform/text_utf.h"
#include "core/settings/settings_file.h"

namespace rakeyard {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// The longest prefix of text that reads as a decimal number: sign, digits, point, digits, and an
// exponent only when it has digits.
std::string_view numberPrefix(std::string_view text) {
    std::size_t end = 0;
    if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
    std::size_t digits = 0;
    while (end < text.size() && isDigit(text[end]))
        ++end, ++digits;
    if (end < text.size() && text[end] == '.') {
        ++end;
        while (end < text.size() && isDigit(text[end]))
            ++end, ++digits;
    }
    if (digits == 0) return {};
    std::size_t exponent = end;
    if (exponent < text.size() && (text[exponent] == 'e' || text[exponent] == 'E')) {
        ++exponent;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
        if (exponent < text.size() && isDigit(text[exponent])) {
            while (exponent < text.size() && isDigit(text[exponent]))
                ++exponent;
            end = exponent;
        }
    }
    return text.substr(0, end);
}

}  // namespace

std::int16_t toSettingsNumber(std::string_view text) {
    std::size_t start = 0;
    while (start < text.size() && (text[start] == ' ' || text[start] == '\t'))
        ++start;
    std::string_view number = numberPrefix(text.substr(start));
    if (number.empty()) return 0;
    const bool negative = number.front() == '-';
    if (number.front() == '+' || negative) number.remove_prefix(1);
    // from_chars, unlike strtod, reads "1.5" the same under every locale the windows may set.
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        const std::size_t exponent = number.find_first_of("eE");
        const bool tiny = exponent != std::string_view::npos && exponent + 1 < number.size() &&
                          number[exponent + 1] == '-';
        value = tiny ? 0.0 : 1e9;
    } else if (error != std::errc()) {
        return 0;
    }
    value = std::nearbyint(negative ? -value : value);
    if (value <= -32768.0) return -32768;
    if (value >= 32767.0) return 32767;
    return static_cast<std::int16_t>(value);
}

std::vector<SettingsBox> settingsBoxes(const SettingsRecord& record) {
    std::vector<SettingsBox> boxes;
    boxes.reserve(kSettingsFieldCount);
    for (const SettingsField& field : settingsFields()) {
        if (field.text) {
            const std::string& value = record.*field.text;
            boxes.push_back({field.name, trimBlanks(value.substr(0, value.find('\0')))});
        } else {
            boxes.push_back({field.name, std::to_string(record.*field.number)});
        }
    }
    return boxes;
}

bool storeSettingsBoxes(const std::vector<std::string>& texts, SettingsRecord& record,
                        PathGlobals& paths, Services& services) {
    const auto& fields = settingsFields();
    for (std::size_t i = 0; i < fields.size() && i < texts.size(); ++i) {
        if (fields[i].text) {
            setText(record, fields[i].text, texts[i]);
        } else {
            record.*fields[i].number = toSettingsNumber(texts[i]);
        }
    }
    refreshPathGlobals(record, paths);
    return saveSettings(record, paths, services);
}

}  // namespace rakeyard
