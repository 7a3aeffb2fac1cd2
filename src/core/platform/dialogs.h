#pragma once
#include <string_view>

namespace rakeyard {

enum class Icon { None, Stop, Exclamation, Question, Information };
// SaveDiscardCancel answers Yes for Save and No for Discard.
enum class Buttons { Ok, OkCancel, YesNo, SaveDiscardCancel };
enum class Answer { Ok, Cancel, Yes, No };

// The one way the program tells the user something or asks a question. The window program
// shows message boxes, the CLI prints and answers from its flags, tests record and script.
// Every question names its safe answer: the one that changes and deletes nothing, which the
// CLI gives when neither --yes nor --no was said.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual void report(std::string_view text, Icon icon, std::string_view title = {}) = 0;
    [[nodiscard]] virtual Answer ask(std::string_view text, Buttons buttons, Icon icon,
                                     Answer safeAnswer, std::string_view title = {}) = 0;
};

}  // namespace rakeyard
