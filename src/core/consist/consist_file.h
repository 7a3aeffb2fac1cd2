#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/msts/text_lines.h"

namespace rakeyard {

// A word of a consist file as written: its text, and whether it stood in double quotes.
struct ConsistWord {
    std::string text;
    bool quoted = false;
    bool operator==(const ConsistWord&) const = default;
};

// One unit block, with every field the file gives for it (texts as written, UTF-8).
struct ConsistFileUnit {
    bool isEngine = false;       // an "Engine (" block with "EngineData", else "Wagon (" block
    ConsistWord file;            // the unit's file name without ".eng"/".wag"
    ConsistWord folder;          // its folder under Trainset
    std::string uid;             // the UiD as written ("7", "1e30"); "" when the block has none
    bool flipped = false;        // "Flip ( )"
    bool uidBeforeData = false;  // the UiD line stands before the data line (engines do so)
    bool flipFirst = false;      // "Flip ( )" opens the block (engines do so)
    bool operator==(const ConsistFileUnit&) const = default;
};

// The header of a consist file; "" for a line the file does not have.
struct ConsistFileHeader {
    ConsistWord trainCfg;
    std::string name;  // between the quotes of "Name ( "..." )"
    std::string serial;
    std::string maxVelocity;  // both numbers, as written ("40.00000 1.00000")
    std::string nextWagonUid;
    std::string durability;
    bool operator==(const ConsistFileHeader&) const = default;
};

// A line the reader did not understand, and where it stands (1-based, the SIMIS line is 1).
struct ConsistFileProblem {
    std::size_t line = 0;
    std::string text;
};

// The lines of a file as read, so that what was not changed is written back as it stood,
// whatever tool wrote it. Empty for a consist made in the program.
struct ConsistFileLayout {
    enum class Kind { Other, Header, Unit };
    struct Item {
        Kind kind = Kind::Other;
        std::size_t unit = 0;               // Unit: the index of its unit
        std::vector<std::u16string> lines;  // Other and Header: one line; Unit: the whole block
    };
    std::vector<Item> items;
    ConsistFileHeader header;            // the header as read
    std::vector<ConsistFileUnit> units;  // the units as read
};

// A consist file as a value: what the editor, the tester and the command line read and write.
struct ConsistFile {
    ConsistFileHeader header;
    std::vector<ConsistFileUnit> units;  // in file order
    bool finalLineEnd = false;           // CR LF after the last ")", as some tools write
    ConsistFileLayout layout;
};

// What parseConsistFile made of the bytes.
struct ConsistFileRead {
    bool isUnicode = false;  // FF FE and the 30-character SIMIS line: else nothing was read
    ConsistFile file;
    std::vector<ConsistFileProblem> problems;  // lines not understood, in order
    bool endsEarly = false;                    // a block still open at the end of the file
};

// Reads the bytes of a ".con" file (UTF-16 LE after FF FE; lines end at CR). Knows the header
// lines, the "Engine (" and "Wagon (" blocks with their data, UiD and Flip lines, and the
// closing lines; anything else is a problem at its line.
[[nodiscard]] ConsistFileRead parseConsistFile(std::string_view bytes);

// The bytes of a consist file: FF FE, UTF-16 LE, lines ending in CR LF. What the file's layout
// holds and was not changed is written as it was read; anything else in the layout MSTS writes,
// where a header line with an empty value is left out, but for TrainCfg.
[[nodiscard]] std::string writeConsistFile(const ConsistFile& file);

}  // namespace rakeyard
