#include "core/msts/comment_pass.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <unordered_map>

namespace rakeyard {

namespace {

// The text as the comment pass sees it while it works: the original text with ranges cut out,
// each of which now stands as one blank. Replacing a piece everywhere in a long text would
// otherwise copy the text once per comment; here the pass only finds the ranges, and the text
// is cut once at the end.
//
// Every piece starts with a "Comment" word and ends at the first ")" behind it (or, with none
// left, the first LF), and no cut creates a new word (the blank is no part of one). So the
// words found at the start are all there ever are, and the piece standing at a word is that
// word's own piece: an occurrence of a piece can only be a word whose own piece equals it.
class CommentPass {
public:
    CommentPass(std::u16string_view text, std::vector<std::size_t> words)
        : text_(text), words_(std::move(words)) {}

    // The ranges to cut, each to stand as one blank: first -> last, 0-based, inclusive.
    const std::map<std::size_t, std::size_t>& run();

private:
    // A reader of the current text from a 0-based position that is no part of a cut.
    class Cursor {
    public:
        Cursor(const CommentPass& pass, std::size_t pos)
            : pass_(pass), pos_(pos), next_(pass.cuts_.lower_bound(pos)) {}
        bool atEnd() const { return pos_ >= pass_.text_.size(); }
        std::size_t pos() const { return pos_; }
        char16_t get() const { return atCut() ? u' ' : pass_.text_[pos_]; }
        void advance() {
            if (atCut()) {
                pos_ = next_->second + 1;
                ++next_;
            } else {
                ++pos_;
            }
        }

    private:
        bool atCut() const { return next_ != pass_.cuts_.end() && next_->first == pos_; }
        const CommentPass& pass_;
        std::size_t pos_;
        std::map<std::size_t, std::size_t>::const_iterator next_;
    };

    static constexpr std::size_t kNone = std::u16string_view::npos;
    // Up to this many words every later word is looked at for each piece; beyond it only the
    // words whose own piece hashes alike, and those whose own piece a cut has changed.
    static constexpr std::size_t kFewWords = 64;

    std::size_t findAfter(char16_t c, std::size_t pos) const;
    std::u16string_view piece(std::size_t first, std::size_t last);
    std::size_t matchEnd(std::size_t pos, std::u16string_view piece) const;
    bool mayStandAt(std::size_t k, std::u16string_view piece) const;
    void cut(std::size_t first, std::size_t last);
    void indexOwnEnds();
    void indexOwnPieces();
    std::uint64_t hashOf(std::u16string_view piece) const;
    std::vector<std::size_t> candidates(std::size_t from, std::u16string_view piece) const;

    std::u16string_view text_;
    std::vector<std::size_t> words_;
    std::vector<char> dead_;                   // per word: a cut covers it
    std::map<std::size_t, std::size_t> cuts_;  // first -> last, 0-based, inclusive
    std::vector<std::size_t> ownEnd_;          // per word: the end of its own piece in the original
    std::vector<char> changed_;                // per word: a cut has changed its own piece
    std::u16string pieceBuffer_;               // a piece that cuts have changed
    // Only with many words:
    bool manyWords_ = false;
    std::vector<std::uint64_t> prefixHash_;
    std::vector<std::uint64_t> power_;
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> byHash_;
    std::set<std::size_t> changedWords_;
};

std::size_t CommentPass::findAfter(char16_t c, std::size_t pos) const {
    std::size_t at = text_.find(c, pos + 1);
    while (at != kNone) {
        auto it = cuts_.upper_bound(at);
        if (it == cuts_.begin() || (--it)->second < at) return at;
        at = text_.find(c, it->second + 1);
    }
    return at;
}

// The piece as the text stands now; it stays valid until the next piece is taken.
std::u16string_view CommentPass::piece(std::size_t first, std::size_t last) {
    const auto nextCut = cuts_.lower_bound(first);
    if (nextCut == cuts_.end() || nextCut->first > last)
        return text_.substr(first, last - first + 1);
    pieceBuffer_.clear();
    for (Cursor c(*this, first); !c.atEnd() && c.pos() <= last; c.advance())
        pieceBuffer_ += c.get();
    return pieceBuffer_;
}

// False when the piece cannot stand at word k: a word's own piece is the only one that can,
// and while no cut has changed it, its length tells at once.
bool CommentPass::mayStandAt(std::size_t k, std::u16string_view piece) const {
    return changed_[k] || ownEnd_[k] - words_[k] + 1 == piece.size();
}

// When piece stands at pos, the 0-based position of its last character, else kNone.
std::size_t CommentPass::matchEnd(std::size_t pos, std::u16string_view piece) const {
    Cursor c(*this, pos);
    std::size_t last = pos;
    for (char16_t wanted : piece) {
        if (c.atEnd() || c.get() != wanted) return kNone;
        last = c.pos();
        c.advance();
    }
    auto it = cuts_.find(last);
    return it == cuts_.end() ? last : it->second;
}

void CommentPass::cut(std::size_t first, std::size_t last) {
    cuts_.erase(cuts_.lower_bound(first), cuts_.upper_bound(last));
    cuts_.emplace(first, last);
    const auto begin = std::lower_bound(words_.begin(), words_.end(), first);
    const auto end = std::upper_bound(begin, words_.end(), last);
    for (auto it = begin; it != end; ++it)
        dead_[it - words_.begin()] = 1;
    // Earlier words whose own piece reached into the cut now have another one.
    const std::size_t firstCut = begin - words_.begin();
    const auto reaching = std::lower_bound(ownEnd_.begin(), ownEnd_.begin() + firstCut, first);
    for (std::size_t k = reaching - ownEnd_.begin(); k < firstCut; ++k) {
        if (dead_[k] || changed_[k]) continue;
        changed_[k] = 1;
        if (manyWords_) changedWords_.insert(k);
    }
}

void CommentPass::indexOwnEnds() {
    ownEnd_.resize(words_.size());
    for (std::size_t k = 0; k < words_.size(); ++k) {
        std::size_t end = text_.find(u')', words_[k] + 1);
        if (end == kNone) end = text_.find(u'\n', words_[k] + 1);
        // A word with no end has no piece; give it one that can match nothing.
        ownEnd_[k] = end == kNone ? text_.size() : end;
    }
}

std::uint64_t CommentPass::hashOf(std::u16string_view piece) const {
    std::uint64_t hash = 0;
    for (char16_t c : piece)
        hash = hash * power_[1] + c;
    return hash;
}

void CommentPass::indexOwnPieces() {
    const std::size_t n = text_.size();
    prefixHash_.assign(n + 1, 0);
    power_.assign(n + 1, 1);
    for (std::size_t i = 0; i < n; ++i) {
        prefixHash_[i + 1] = prefixHash_[i] * 1000003u + text_[i];
        power_[i + 1] = power_[i] * 1000003u;
    }
    for (std::size_t k = 0; k < words_.size(); ++k) {
        const std::size_t end = ownEnd_[k];
        if (end == n) continue;
        const std::size_t length = end - words_[k] + 1;
        const std::uint64_t hash = prefixHash_[end + 1] - prefixHash_[words_[k]] * power_[length];
        byHash_[hash].push_back(k);
    }
}

std::vector<std::size_t> CommentPass::candidates(std::size_t from,
                                                 std::u16string_view piece) const {
    std::vector<std::size_t> found;
    const auto same = byHash_.find(hashOf(piece));
    if (same != byHash_.end())
        found.assign(std::lower_bound(same->second.begin(), same->second.end(), from),
                     same->second.end());
    found.insert(found.end(), changedWords_.lower_bound(from), changedWords_.end());
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

const std::map<std::size_t, std::size_t>& CommentPass::run() {
    dead_.assign(words_.size(), 0);
    changed_.assign(words_.size(), 0);
    indexOwnEnds();
    manyWords_ = words_.size() > kFewWords;
    if (manyWords_) indexOwnPieces();
    for (std::size_t i = 0; i < words_.size(); ++i) {
        if (dead_[i]) continue;
        std::size_t close = findAfter(u')', words_[i]);
        if (close == kNone) close = findAfter(u'\n', words_[i]);
        // A comment with neither behind it runs to the end of the text, which it may keep.
        if (close == kNone) continue;
        const std::u16string_view found = piece(words_[i], close);
        // Every occurrence, left to right and not overlapping; none stands before this word,
        // as all earlier words are cut already.
        std::size_t searchFrom = words_[i];
        const auto cutIfThere = [&](std::size_t k) {
            if (dead_[k] || words_[k] < searchFrom || !mayStandAt(k, found)) return;
            const std::size_t end = matchEnd(words_[k], found);
            if (end == kNone) return;
            cut(words_[k], end);
            searchFrom = end + 1;
        };
        if (manyWords_) {
            for (std::size_t k : candidates(i, found))
                cutIfThere(k);
        } else {
            for (std::size_t k = i; k < words_.size(); ++k)
                cutIfThere(k);
        }
    }
    return cuts_;
}

}  // namespace

std::vector<Cut> commentCuts(std::u16string_view text, std::vector<std::size_t> words) {
    if (words.empty()) return {};
    CommentPass pass(text, std::move(words));
    const std::map<std::size_t, std::size_t>& cuts = pass.run();
    return std::vector<Cut>(cuts.begin(), cuts.end());
}

}  // namespace rakeyard
