// The catalogue load against the plain text work: every record, list line and finding the same
// on the sample installation, the real content and a generated installation full of faults.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>

#include "core/msts/catalogue_reader.h"
#include "core/msts/trainset_files.h"
#include "core/msts/unit_file.h"
#include "core/msts/unit_list.h"
#include "core/platform/paths.h"
#include "core/platform/text_utf.h"
#include "support/fakes.h"
#include "support/msts_tree.h"
#include "support/plain_unit_text.h"

namespace rakeyard {
namespace {

// What a load leaves for the CLI to print: each record by the fields its JSON holds, the list
// lines, and StartErrors.txt.
struct LoadOutcome {
    std::vector<std::string> records;
    std::vector<std::string> lines;
    std::string startErrors;
    std::vector<std::string> told;  // the messages and questions, in order
};

std::string fieldsOf(const UnitRecord& r) {
    char numbers[64];
    std::snprintf(numbers, sizeof numbers, "%.9g|%.9g", r.mass, r.length);
    return r.folderPath + "|" + r.folderName + "|" + r.fileName + "|" + r.displayName + "|" +
           r.unitType + "|" + r.couplerFront + "|" + r.couplerRear + "|" + numbers + "|" +
           r.maxPower + "|" + r.shapeName + "|" + (r.hasCab ? "cab" : "ai");
}

void addRecords(std::span<const UnitRecord> records, bool engines, LoadOutcome& outcome) {
    for (const UnitRecord& record : records)
        outcome.records.push_back(fieldsOf(record));
    for (const std::string& line :
         engines ? readEngFilter(records, "All") : readWagFilter(records, "All"))
        outcome.lines.push_back(line);
}

class CatalogueAgainstPlainTextWork : public ::testing::Test {
protected:
    void SetUp() override {
        paths.programFolder = home.path();
        std::filesystem::create_directories(home / "Reports");
        fake.dialogs.defaultAnswer = Answer::Ok;  // keep StartErrors.txt
    }

    // The load as start-up runs it, on every core; with readAhead, from the files read before
    // as the window program reads them while it makes its windows.
    LoadOutcome load(const std::string& msts, bool readAhead = false) {
        paths.trainsetPath = msts + "/TRAINS/TRAINSET";
        (void)fake.fs.removeFile(startErrorsFile(paths));
        fake.dialogs.shown.clear();
        auto catalogue = std::make_unique<UnitCatalogue>();
        UnitFilesAhead ahead;
        if (readAhead)
            ahead = readUnitFilesAhead(paths.trainsetPath, fake.fs, [&] { return catalogue.get(); });
        readUnitCatalogue(paths, *catalogue, fake.services, false, 0,
                          readAhead ? &ahead : nullptr);
        LoadOutcome outcome;
        outcome.told = fake.dialogs.texts();
        addRecords(usedRecords(*catalogue, UnitClass::Engine), true, outcome);
        addRecords(usedRecords(*catalogue, UnitClass::Wagon), false, outcome);
        outcome.startErrors = test::readWholeFile(startErrorsFile(paths));
        return outcome;
    }

    // The same, file after file on one thread, each text made by the plain passes.
    LoadOutcome plainLoad(const std::string& msts) {
        paths.trainsetPath = msts + "/TRAINS/TRAINSET";
        LoadOutcome outcome;
        for (const bool engines : {true, false}) {
            const auto wanted = [&](std::string_view name) {
                return hasExtension(name, engines ? ".ENG" : ".WAG");
            };
            std::vector<UnitRecord> records(1);
            for (const TrainsetFile& entry : listTrainsetFiles(paths, fake.services, "", wanted)) {
                if (!engines && upperAscii(entry.file) == "DEFAULT.WAG") continue;
                const std::optional<std::string> bytes =
                    fake.fs.readFile(joinPath(entry.folder, entry.file));
                test::PlainUnitText text;
                const std::optional<std::string_view> view =
                    bytes ? std::optional<std::string_view>(*bytes) : std::nullopt;
                UnitFileResult result =
                    engines ? readEngineFile(view, entry.file, entry.folder, false, text)
                            : readWagonFile(view, entry.file, entry.folder, false, text);
                for (const std::string& finding : result.findings)
                    outcome.startErrors += finding + "\r\n";
                if (result.recordBegun) records.back() = std::move(result.record);
                if (result.accepted) records.emplace_back();
            }
            records.pop_back();
            addRecords(records, engines, outcome);
        }
        return outcome;
    }

    void expectSameAsPlain(const std::string& msts) {
        const LoadOutcome plain = plainLoad(msts);
        const LoadOutcome quick = load(msts);
        ASSERT_FALSE(plain.records.empty()) << msts;
        expectSameLines(quick.records, plain.records, "record");
        expectSameLines(quick.lines, plain.lines, "list line");
        EXPECT_EQ(quick.startErrors, plain.startErrors);
        const LoadOutcome ahead = load(msts, true);
        EXPECT_EQ(ahead.records, quick.records);
        EXPECT_EQ(ahead.lines, quick.lines);
        EXPECT_EQ(ahead.startErrors, quick.startErrors);
        EXPECT_EQ(ahead.told, quick.told);
    }

    // Tells the first line that differs rather than all of them.
    static void expectSameLines(const std::vector<std::string>& quick,
                                const std::vector<std::string>& plain, const char* what) {
        EXPECT_EQ(quick.size(), plain.size()) << what << "s";
        for (std::size_t i = 0; i < std::min(quick.size(), plain.size()); ++i) {
            if (quick[i] == plain[i]) continue;
            ADD_FAILURE() << what << " " << i << ":\n" << quick[i] << "\nplain:\n" << plain[i];
            return;
        }
    }

    test::TempFolder home;
    test::FakeServices fake;
    PathGlobals paths;
};

TEST_F(CatalogueAgainstPlainTextWork, SameOnTheSampleInstallation) {
    expectSameAsPlain(std::string(RAKEYARD_SOURCE_DIR) + "/samples/msts");
}

// Records read ahead stand in for the listing and reading only where they came from the folder
// to read into the catalogue being filled, and not in debug mode, whose window shows each
// file's passes.
TEST_F(CatalogueAgainstPlainTextWork, RecordsReadAheadAreKeptOnlyFromTheFolderToReadIntoTheSameCatalogue) {
    const std::string sample = std::string(RAKEYARD_SOURCE_DIR) + "/samples/msts/TRAINS/TRAINSET";
    const auto loadFrom = [&](const std::string& trainset, bool debugMode, bool sameCatalogue) {
        auto catalogue = std::make_unique<UnitCatalogue>();
        auto elsewhere = std::make_unique<UnitCatalogue>();
        UnitFilesAhead ahead = readUnitFilesAhead(sample, fake.fs, [&] {
            return sameCatalogue ? catalogue.get() : elsewhere.get();
        });
        paths.trainsetPath = trainset;
        fake.progress.labels.clear();
        readUnitCatalogue(paths, *catalogue, fake.services, debugMode, 0, &ahead);
        const bool listed = std::count(fake.progress.labels.begin(), fake.progress.labels.end(),
                                       "Loading engine files...") > 0;
        return std::make_pair(catalogue->engineCount, listed);
    };
    const auto [kept, listedAgain] = loadFrom(sample, false, true);
    EXPECT_GT(kept, 0u);
    EXPECT_FALSE(listedAgain);
    EXPECT_EQ(loadFrom(sample, true, true), std::make_pair(kept, true));
    EXPECT_EQ(loadFrom(sample, false, false), std::make_pair(kept, true));
    std::filesystem::create_directories(home / "other/TRAINS/TRAINSET");
    EXPECT_EQ(loadFrom(home / "other/TRAINS/TRAINSET", false, true),
              std::make_pair(std::size_t{0}, true));

    // Given no catalogue, the reading ends once the files are listed, and nothing is kept.
    UnitFilesAhead listedOnly = readUnitFilesAhead(sample, fake.fs, [] { return nullptr; });
    EXPECT_FALSE(listedOnly.engines.empty());
    EXPECT_EQ(listedOnly.filled, nullptr);
    EXPECT_TRUE(listedOnly.engineFindings.empty());
}

TEST_F(CatalogueAgainstPlainTextWork, SameOnRealContent) {
    const std::string msts = std::string(RAKEYARD_REALDATA_DIR) + "/cjakeman_Demo-Model-1";
    if (!std::filesystem::is_directory(msts + "/TRAINS/TRAINSET"))
        GTEST_SKIP() << "no real MSTS content at " << msts << " (set RAKEYARD_REALDATA_DIR)";
    expectSameAsPlain(msts);
}

// Lines of unit files, right and wrong; a generated file takes them in order or shuffled.
const char* const kUnitLines[] = {
    "\tType ( Engine )",
    "\tType ( freight )",
    "\tType ( Magic )",
    "\tcomment ( a light: Type ( 0 ) )",
    "\tComment ( a Comment ( b ) c )",
    "\tCOMMENT no close",
    "\tcomment(dup)\tMass ( comment(dup) 3t )",
    "\tcomment ( was CouplingUniqueType ( x ) )",
    "\tWagonShape ( unit.s )",
    "\tWagonShapeX ( other.s )",
    "\tSize ( 3m 4m 20.456m )",
    "\tSize(\"3\" 4ft 65ft)",
    "\tMass ( \"75.5t\" )",
    "\tx Mass ( 1t )",
    "\tMass ( 900kg )",
    "\tCoupling (\n\t\tType ( Automatic )\n\t\tCouplingHasRigidConnection ( 0 )\n\t)",
    "\tCoupling (\n\t\tType ( chain )\n\t\tCouplingUniqueType ( x )\n\t)",
    "\tBuffers ( Type ( Bar ) )",
    "\tAdheasion ( 0.3 0.6 2 0 )",
    "\tBrakeEquipmentType ( \"Handbrake\" )",
    "\tMaxBrakeForce ( 89kN ) Engine",
    ")\nEngine ( unit",
    "\tType ( Diesel )",
    "\tType\t( electric )",
    "\tMaxPower ( 2000kW # peak )",
    "\tCabView ( unit.cvf )",
    "\tCabView ( ) unit.CVF",
    "\tName ( \"A unit\" )",
    "\tName ( plain name )",
    "\tName ( \"quoted\" ) tail )",
    "\tDescription ( \"Mass ( 9t ) Name ( d )\" )",
    "\tDescription\t\"Type ( Steam )\"",
    "\tSound ( \"unit.sms\" )",
};

// Writes units whose texts run from sound to garbled, with line ends, tabs and encodings as
// MSTS tools leave them, and some that are no text at all.
void writeFaultyInstallation(test::MstsTree& msts, unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
    for (int i = 0; i < 240; ++i) {
        const std::string name = (i % 3 ? "Unit" : "unit") + std::to_string(i);
        const char* wagonLines[] = {"Wagon ( NAME", "Wagon ( \"NAME\"", "Wagon ( NAME )",
                                    "  wagon(NAME", "Wagons ( NAME",    "Wagon ( NAME\n"};
        std::string wagonLine = wagonLines[below(4) == 0 ? below(std::size(wagonLines)) : 0];
        wagonLine.replace(wagonLine.find("NAME"), 4, name);
        std::vector<std::string> lines(std::begin(kUnitLines), std::end(kUnitLines));
        if (below(2) == 0) std::shuffle(lines.begin(), lines.end(), random);
        std::string text = "SIMISA@@@@@@@@@@JINX0D0t______\n\n" + wagonLine + "\n";
        for (const std::string& line : lines) {
            if (below(3) != 0) text += line + "\n";
        }
        text += ")\n";
        // Line ends and tabs as different tools write them.
        std::string ends;
        const char* lineEnd[] = {"\r\n", "\n", "\r"};
        const char* end = lineEnd[below(5) == 0 ? below(3) : 0];
        for (char c : text) {
            ends += c == '\n'                    ? std::string(end)
                    : c == '\t' && below(4) == 0 ? " "
                                                 : std::string(1, c);
        }
        std::string bytes = "\xFF\xFE" + test::utf16Bytes(ends);
        switch (below(12)) {
            case 0:
                bytes = ends;
                break;  // 8-bit
            case 1:
                bytes.resize(below(bytes.size()));
                break;  // cut short
            case 2:
                bytes.pop_back();
                break;  // an odd byte
            default:
                break;
        }
        const std::string folder = "TRAINS/TRAINSET/F" + std::to_string(i % 37) + "/";
        msts.writeBytes(folder + name + (i % 2 ? ".eng" : ".WAG"), bytes);
    }
    msts.writeBytes("TRAINS/TRAINSET/F1/DEFAULT.WAG", "not read");
}

TEST_F(CatalogueAgainstPlainTextWork, SameOnAGeneratedInstallationWithFaults) {
    for (unsigned seed : {1u, 2u, 3u}) {
        SCOPED_TRACE(seed);
        test::MstsTree msts;
        writeFaultyInstallation(msts, seed);
        expectSameAsPlain(msts.msts());
        EXPECT_NE(load(msts.msts()).startErrors, "");
    }
}

}  // namespace
}  // namespace rakeyard
