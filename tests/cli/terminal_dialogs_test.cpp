// The terminal's questions: the answer comes from --yes/--no or the question's own safe answer,
// never from its wording.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

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
    EXPECT_EQ(yes.ask("Save changes?", Buttons::SaveDiscardCancel, Icon::Question, Answer::Cancel),
              Answer::Yes);
    EXPECT_EQ(no.ask("Save changes?", Buttons::SaveDiscardCancel, Icon::Question, Answer::Cancel),
              Answer::No);
    EXPECT_EQ(safe.ask("Save changes?", Buttons::SaveDiscardCancel, Icon::Question, Answer::Cancel),
              Answer::Cancel);

    std::rewind(out);
    char line[200] = {};
    ASSERT_NE(std::fgets(line, sizeof line, out), nullptr);
    EXPECT_STREQ(line, "question: Do you wish to save these errors to a file? -> OK\n");
    std::string all = line;
    while (std::fgets(line, sizeof line, out))
        all += line;
    EXPECT_NE(all.find("question: Save changes? -> Save\n"), std::string::npos);
    EXPECT_NE(all.find("question: Save changes? -> Discard\n"), std::string::npos);
    std::fclose(out);
}

}  // namespace
}  // namespace rakeyard::cli
