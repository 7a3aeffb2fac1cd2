#include "support/plain_unit_text.h"

#include "core/platform/progress.h"

namespace rakeyard::test {

namespace {

std::u16string replaceAll(std::u16string text, std::u16string_view piece) {
    std::u16string out;
    std::size_t from = 0;
    for (std::size_t at = text.find(piece); at != std::u16string::npos;
         at = text.find(piece, from)) {
        out += text.substr(from, at - from) + u" ";
        from = at + piece.size();
    }
    return out + text.substr(from);
}

}  // namespace

std::u16string plainCommentPass(std::u16string text) {
    std::size_t p = upperText(text).find(u"COMMENT");
    while (p != std::u16string::npos) {
        std::size_t q = text.find(u')', p + 1);
        if (q == std::u16string::npos) q = text.find(u'\n', p + 1);
        if (q != std::u16string::npos) text = replaceAll(text, text.substr(p, q - p + 1));
        p = upperText(text).find(u"COMMENT", p + 1);
    }
    return text;
}

std::u16string plainUnitText(std::string_view bytes, bool cutDescription) {
    std::u16string text = decodeMstsText(bytes);
    if (cutDescription) {
        std::size_t at = text.rfind(u"Description (");
        if (at == std::u16string::npos) at = text.rfind(u"Description ");
        if (at != std::u16string::npos) text.resize(at);
    }
    text = plainCommentPass(text);
    text = replaceAll(text, u"CouplingUniqueType");
    return replaceAll(text, u"CouplingHasRigidConnection");
}

void PlainUnitText::strip(std::string_view bytes, bool cutDescription, const StripTitles* titles,
                          Progress* debug) {
    if (debug && titles) {
        if (cutDescription) debug->debugText(3, titles->description);
        debug->debugText(3, titles->comments);
        debug->debugText(3, titles->couplings);
    }
    text_ = plainUnitText(bytes, cutDescription);
    upper_ = upperText(text_);
    length_ = text_.size();
}

}  // namespace rakeyard::test
