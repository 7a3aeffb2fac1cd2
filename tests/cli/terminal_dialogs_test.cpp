// The terminal's questions: the answer comes from --yes/--no or the question's own safe answer,
// never from its wording.
#include <gtest/gtest.h>

#include <cstdio>

#include "cli/terminal_services.h"

namespace rakeyard::cli {
namespace {

TEST(TerminalDialogs, AnswerComesFromTheFlagsOrTheSafeAnswerWhateverTheWording) {
    std::FILE* out = std::tmpfile();
    ASSERT_NE(out, nullptr);
    TerminalDialogs safe(DefaultAnswer::Safe, out);
    for (const char* wording : {"Do you wish to save these errors to a file?",
                                "Shall the findings be kept?", "Overwrite this consist?"}) {
        EXPECT_EQ(safe.ask(wording, Buttons::OkCancel, Icon::Question, Answer::Ok), Answer::Ok)
            << wording;
        EXPECT_EQ(safe.ask(wording, Buttons::YesNo, Icon::Question, Answer::No), Answer::No)
            << wording;
    }
    TerminalDialogs yes(DefaultAnswer::Yes, out);
    EXPECT_EQ(yes.ask("Anything?", Buttons::OkCancel, Icon::Question, Answer::Cancel), Answer::Ok);
    TerminalDialogs no(DefaultAnswer::No, out);
    EXPECT_EQ(no.ask("Anything?", Buttons::YesNo, Icon::Question, Answer::Yes), Answer::No);

    std::rewind(out);
    char line[200] = {};
    ASSERT_NE(std::fgets(line, sizeof line, out), nullptr);
    EXPECT_STREQ(line, "question: Do you wish to save these errors to a file? -> OK\n");
    std::fclose(out);
}

}  // namespace
}  // namespace rakeyard::cli
