#include "cli/cli_options.h"

#include <algorithm>
#include <string_view>

namespace rakeyard::cli {
namespace {

// Splits "--name=value" into its two halves; a word without "=" has no inline value.
std::pair<std::string, std::optional<std::string>> splitOption(const std::string& word) {
    const std::size_t equals = word.find('=');
    if (word.rfind("--", 0) != 0 || equals == std::string::npos) return {word, std::nullopt};
    return {word.substr(0, equals), word.substr(equals + 1)};
}

std::optional<std::string>* valueOptionOf(GlobalOptions& options, std::string_view name) {
    if (name == "--home") return &options.home;
    if (name == "--msts") return &options.msts;
    if (name == "--editor") return &options.editor;
    if (name == "--viewer") return &options.viewer;
    return nullptr;
}

// Handles a flag of the global options; false when the word is none of them.
bool takeGlobalFlag(GlobalOptions& options, std::string_view word, std::string& error) {
    if (word == "--yes" || word == "--no") {
        const DefaultAnswer answer = word == "--yes" ? DefaultAnswer::Yes : DefaultAnswer::No;
        if (options.answer != DefaultAnswer::Safe && options.answer != answer)
            error = "--yes and --no can't both be given";
        options.answer = answer;
        return true;
    }
    if (word == "--json") return options.json = true;
    if (word == "--help" || word == "-h") return options.help = true;
    if (word == "--version") return options.version = true;
    return false;
}

}  // namespace

ParsedCommandLine parseCommandLine(const std::vector<std::string>& arguments) {
    ParsedCommandLine parsed;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--") {  // the rest are words, even those that start with "-"
            parsed.words.insert(parsed.words.end(), arguments.begin() + i, arguments.end());
            break;
        }
        const auto [name, inlineValue] = splitOption(arguments[i]);
        if (std::optional<std::string>* target = valueOptionOf(parsed.options, name)) {
            if (inlineValue) {
                *target = *inlineValue;
            } else if (i + 1 < arguments.size()) {
                *target = arguments[++i];
            } else {
                parsed.error = name + " needs a value";
            }
        } else if (!inlineValue && takeGlobalFlag(parsed.options, name, parsed.error)) {
            continue;
        } else {
            parsed.words.push_back(arguments[i]);
        }
    }
    return parsed;
}

CommandArguments::CommandArguments(std::vector<std::string> words) : words_(std::move(words)) {
    const auto end = std::find(words_.begin(), words_.end(), "--");
    if (end == words_.end()) return;
    verbatim_.assign(end + 1, words_.end());
    words_.erase(end, words_.end());
}

std::optional<std::string> CommandArguments::takeValue(const std::string& name) {
    std::optional<std::string> value;
    for (std::size_t i = 0; i < words_.size();) {
        const auto [word, inlineValue] = splitOption(words_[i]);
        if (word != name) {
            ++i;
            continue;
        }
        if (inlineValue) {
            value = inlineValue;
            words_.erase(words_.begin() + i);
        } else if (i + 1 < words_.size()) {
            value = words_[i + 1];
            words_.erase(words_.begin() + i, words_.begin() + i + 2);
        } else {
            error_ = name + " needs a value";
            words_.erase(words_.begin() + i);
        }
    }
    return value;
}

bool CommandArguments::takeFlag(const std::string& name) {
    bool found = false;
    for (std::size_t i = 0; i < words_.size();) {
        if (words_[i] == name) {
            found = true;
            words_.erase(words_.begin() + i);
        } else {
            ++i;
        }
    }
    return found;
}

std::vector<std::string> CommandArguments::operands() {
    for (const std::string& word : words_) {
        if (word.size() > 1 && word[0] == '-' && error_.empty()) error_ = "unknown option " + word;
    }
    std::vector<std::string> all = words_;
    all.insert(all.end(), verbatim_.begin(), verbatim_.end());
    return all;
}

}  // namespace rakeyard::cli
