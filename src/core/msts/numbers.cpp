#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>

#include "core/msts/msts_text.h"

namespace rakeyard {

namespace {

template <typename Char>
double leadingNumber(std::basic_string_view<Char> s) {
    std::size_t i = 0;
    while (i < s.size() && s[i] == Char(' '))
        ++i;
    std::string digits;
    if (i < s.size() && (s[i] == Char('+') || s[i] == Char('-')))
        digits += static_cast<char>(s[i++]);
    const auto isDigit = [&](std::size_t k) {
        return k < s.size() && s[k] >= Char('0') && s[k] <= Char('9');
    };
    bool any = false;
    while (isDigit(i)) {
        digits += static_cast<char>(s[i++]);
        any = true;
    }
    if (i < s.size() && s[i] == Char('.')) {
        digits += '.';
        ++i;
        while (isDigit(i)) {
            digits += static_cast<char>(s[i++]);
            any = true;
        }
    }
    if (!any) return 0;
    if (i < s.size() && (s[i] == Char('e') || s[i] == Char('E'))) {
        std::size_t k = i + 1;
        std::string exponent = "e";
        if (k < s.size() && (s[k] == Char('+') || s[k] == Char('-')))
            exponent += static_cast<char>(s[k++]);
        if (isDigit(k)) {
            while (isDigit(k))
                exponent += static_cast<char>(s[k++]);
            digits += exponent;
        }
    }
    // from_chars ignores the locale: the decimal point is always ".".
    const char* first = digits.data() + (digits.front() == '+' ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(first, digits.data() + digits.size(), value);
    (void)end;
    return error == std::errc() && std::isfinite(value) ? value : 0;
}

}  // namespace

double numberValue(std::u16string_view s) {
    return leadingNumber(s);
}
double numberValue(std::string_view s) {
    return leadingNumber(s);
}

float round2(double x) {
    // The addend is 0.05, not 0.5: values truncate unless just below a hundredth.
    const double sign = x > 0 ? 1 : (x < 0 ? -1 : 0);
    return static_cast<float>(sign * std::floor(std::fabs(x) * 100 + 0.05) / 100);
}

float toSingle(double value) {
    if (std::isnan(value)) return 0;
    if (value > FLT_MAX) return FLT_MAX;
    if (value < -FLT_MAX) return -FLT_MAX;
    return static_cast<float>(value);
}

std::string singleText(double value) {
    const float single = toSingle(value);
    if (single == 0) return "0";  // also -0, which would print with its sign
    char text[32];
    std::snprintf(text, sizeof text, "%.7G", static_cast<double>(single));
    return text;
}

}  // namespace rakeyard
