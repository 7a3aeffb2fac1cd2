#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>

#include "core/msts/catalogue_reader.h"
#include "core/msts/unit_file.h"
#include "core/platform/paths.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// The parts of a plain engine file, each replaceable by a case.
struct EngineParts {
    std::string wagonLine = "Wagon ( GP38";
    std::string shape = "\tWagonShape ( gp38.s )\n";
    std::string size = "\tSize ( 3m 4m 20m )\n";
    std::string mass = "\tMass ( 120t )\n";
    std::string couplings =
        "\tCoupling (\n\t\tType ( Automatic )\n\t\tVelocity ( 0.1 )\n\t)\n"
        "\tCoupling (\n\t\tType ( Chain )\n\t\tVelocity ( 0.1 )\n\t)\n"
        "\tAdheasion ( 0.2 0.7 2 0 )\n\tBrakeEquipmentType ( \"Handbrake\" )\n";
    // Room: the engine section is looked for a hundred characters behind the first coupling.
    std::string brakes =
        "\tBrakeSystemType ( \"Air_single_pipe\" )\n\tMaxBrakeForce ( 89kN )\n"
        "\tMaxHandbrakeForce ( 12kN )\n";
    std::string engineLine = "Engine ( GP38\n";
    std::string type = "\tType ( Diesel )\n";
    std::string power = "\tMaxPower ( 2000kW )\n";
    std::string cab = "\tCabView ( gp38.cvf )\n";
    std::string name = "\tName ( \"GP 38 Demo\" )\n";

    std::string text() const {
        return wagonLine + "\n\tType ( Engine )\n" + shape + size + mass + couplings + brakes +
               ")\n" + engineLine + type + power + cab + name + ")\n";
    }
};

class ReadEngineFiles : public ::testing::Test {
protected:
    void SetUp() override {
        paths.programFolder = msts.home();
        paths.trainsetPath = msts.trainset();
        std::filesystem::create_directories(msts.home() + "/Reports");
        fake.dialogs.defaultAnswer = Answer::Ok;  // keep StartErrors.txt
    }
    std::string folder(std::string_view name) const { return joinPath(msts.trainset(), name); }
    std::string writeEngine(std::string_view folderName, std::string_view file,
                            const std::string& text) {
        return msts.write("TRAINS/TRAINSET/" + std::string(folderName) + "/" + std::string(file),
                          text);
    }
    void read(unsigned threads = 0) {
        readEngineFiles(paths, *catalogue, fake.services, debugMode, threads);
    }
    std::string startErrors() const { return msts.read("home/Reports/StartErrors.txt"); }
    const UnitRecord& engine(std::size_t i) const { return catalogue->engines[i]; }

    test::MstsTree msts;
    test::FakeServices fake;
    PathGlobals paths;
    bool debugMode = false;
    std::unique_ptr<UnitCatalogue> catalogue = std::make_unique<UnitCatalogue>();
};

TEST_F(ReadEngineFiles, TakesEachValueAsTheLinesGiveIt) {
    struct Case {
        const char* what;
        void (*change)(EngineParts&);
        void (*check)(const UnitRecord&);
    } cases[] = {
        {"plain", [](EngineParts&) {},
         [](const UnitRecord& r) {
             EXPECT_EQ(r.fileName, "GP38.eng");
             EXPECT_EQ(r.displayName, "GP 38 Demo");
             EXPECT_EQ(r.unitType, "Diesel");
             EXPECT_EQ(r.shapeName, "gp38.s");
             EXPECT_EQ(r.length, 20.0f);
             EXPECT_EQ(r.mass, 120.0f);
             EXPECT_EQ(r.maxPower, "2000kW");
             EXPECT_EQ(r.couplerRear, "A");
             EXPECT_EQ(r.couplerFront, "C");
             EXPECT_TRUE(r.hasCab);
         }},
        {"size without units or blanks", [](EngineParts& p) { p.size = "\tSize(3 4 20.456)\n"; },
         [](const UnitRecord& r) { EXPECT_EQ(r.length, 20.45f); }},
        {"size in feet is not converted",
         [](EngineParts& p) { p.size = "\tSize ( 10ft 14ft 65ft )\n"; },
         [](const UnitRecord& r) { EXPECT_EQ(r.length, 65.0f); }},
        {"mass within quotes", [](EngineParts& p) { p.mass = "\tMass ( \"75.5t\" )\n"; },
         [](const UnitRecord& r) { EXPECT_EQ(r.mass, 75.5f); }},
        {"mass in kg taken for tonnes", [](EngineParts& p) { p.mass = "\tMass ( 900kg )\n"; },
         [](const UnitRecord& r) { EXPECT_EQ(r.mass, 900.0f); }},
        {"one coupling block gives both ends",
         [](EngineParts& p) {
             p.couplings =
                 "\tCoupling (\n\t\tType ( bar )\n\t)\n\tAdheasion ( 1 )\n"
                 "\tBrakeEquipmentType ( x )\n";
         },
         [](const UnitRecord& r) { EXPECT_EQ(r.couplerFront + r.couplerRear, "BB"); }},
        {"a type that is no class",
         [](EngineParts& p) { p.couplings = "\tBuffers ( x\n\tType ( Auto )\n"; },
         [](const UnitRecord& r) { EXPECT_EQ(r.couplerFront + r.couplerRear, "??"); }},
        // Without Adheasion the limit is 0, so the second block is never looked at.
        {"second block beyond the limit",
         [](EngineParts& p) {
             p.couplings =
                 "\tCoupling (\n\t\tType ( Chain )\n\t)\n\tCoupling (\n\t\tType ( Bar )\n"
                 "\t)\n\tBrakeEquipmentType ( x )\n";
         },
         [](const UnitRecord& r) { EXPECT_EQ(r.couplerFront + r.couplerRear, "CC"); }},
        {"no coupling words at all", [](EngineParts& p) { p.couplings = ""; },
         [](const UnitRecord& r) { EXPECT_EQ(r.couplerFront + r.couplerRear, "??"); }},
        {"power comment", [](EngineParts& p) { p.power = "\tMaxPower ( 2000kW #x )\n"; },
         [](const UnitRecord& r) { EXPECT_EQ(r.maxPower, "2000kW"); }},
        {"no cab view file", [](EngineParts& p) { p.cab = "\tCabView ( )\n"; },
         [](const UnitRecord& r) { EXPECT_FALSE(r.hasCab); }},
        {"no name line", [](EngineParts& p) { p.name = ""; },
         [](const UnitRecord& r) { EXPECT_EQ(r.displayName, "GP38"); }},
        {"name without quotes", [](EngineParts& p) { p.name = "\tName ( Foo Bar )\n"; },
         [](const UnitRecord& r) { EXPECT_EQ(r.displayName, "Foo Bar"); }},
        {"long name cut to 60",
         [](EngineParts& p) { p.name = "\tName ( \"" + std::string(70, 'n') + "\" )\n"; },
         [](const UnitRecord& r) { EXPECT_EQ(r.displayName, std::string(60, 'n')); }},
        {"name only inside another word", [](EngineParts& p) { p.name = "\tORTSName ( x )\n"; },
         [](const UnitRecord& r) { EXPECT_EQ(r.displayName, "GP38"); }},
        {"quoted wagon name in other case",
         [](EngineParts& p) { p.wagonLine = "Wagon ( \"gp38\""; },
         [](const UnitRecord& r) { EXPECT_EQ(r.fileName, "gp38.eng"); }},
        {"missing shape, size and mass keep the unit",
         [](EngineParts& p) { p.shape = p.size = p.mass = ""; },
         [](const UnitRecord& r) {
             EXPECT_EQ(r.shapeName, "");
             EXPECT_EQ(r.length, 0.0f);
             EXPECT_EQ(r.mass, 0.0f);
             EXPECT_EQ(r.displayName, "GP 38 Demo");
         }},
    };
    for (const Case& c : cases) {
        EngineParts parts;
        c.change(parts);
        writeEngine("GP38", "GP38.eng", parts.text());
        read();
        SCOPED_TRACE(c.what);
        EXPECT_EQ(engine(0).folderPath, folder("GP38"));
        EXPECT_EQ(engine(0).folderName, "GP38");
        c.check(engine(0));
        EXPECT_EQ(engine(1).fileName, "");
    }
}

TEST_F(ReadEngineFiles, ReportsFindingsByteForByte) {
    EngineParts badType;
    badType.type = "\tType ( Turbine )\n";
    writeEngine("A", "BADTYPE.eng", [&] {
        EngineParts p = badType;
        p.wagonLine = "Wagon ( BADTYPE";
        return p.text();
    }());
    msts.writeBytes("TRAINS/TRAINSET/B/EIGHTBIT.eng", "SIMISA@@@@@@@@@@JINX0D0t______\r\n");
    EngineParts other;
    other.wagonLine = "Wagon ( GP40";
    writeEngine("C", "GP38.eng", other.text());
    read();

    const std::string expected =
        "The engine BADTYPE.eng contains an invalid engine type in the line \"Type\".\r\n"
        "Please edit this file and make the necessary corrections!\r\n"
        "Folder " +
        folder("A") +
        "\r\n\r\n"
        "The file EIGHTBIT.eng isn't a Unicode file!\r\n"
        "Folder " +
        folder("B") +
        "\r\n\r\n"
        "The engine file GP38.eng contains an error on the line \"Wagon (\"and so it couldn't be "
        "added to the engines list.\r\n"
        "Most probably this line is stating a name different from its file name.\r\n"
        "Folder " +
        folder("C") + "\r\n\r\n";
    EXPECT_EQ(startErrors(), expected);
    EXPECT_EQ(engine(0).unitType, "????????");
    EXPECT_EQ(engine(1).displayName, "");  // GP38.eng began no record
    ASSERT_EQ(fake.dialogs.shown.size(), 1u);
    EXPECT_EQ(fake.dialogs.shown[0].text,
              "WARNING: one or more errors have been found while reading engine files.\r\n"
              "Do you wish to save these errors to a file?\n"
              "The report will be saved with the name StartErrors.txt under " +
                  joinPath(msts.home(), "Reports"));
}

TEST_F(ReadEngineFiles, RefusesWhatTheReaderCannotPlace) {
    struct Case {
        const char* what;
        void (*change)(EngineParts&);
        const char* finding;
    } cases[] = {
        {"close paren on the wagon line", [](EngineParts& p) { p.wagonLine = "Wagon ( GP38 )"; },
         "The engine file GP38.eng contains an error on the line \"Wagon (\"and so it couldn't "
         "be added to the engines list.\r\nMost probably"},
        {"no wagon line", [](EngineParts& p) { p.wagonLine = "Wagons ( GP38"; },
         "Cannot locate the line \"Wagon (\" in the file GP38.eng and so it couldn't be added "
         "to the engines list.\r\n"},
        {"engine section within the first hundred characters",
         [](EngineParts& p) {
             p.couplings = "\tCoupling (\n\t\tType ( Automatic )\n\t)\n";
             p.brakes = "";
         },
         "Cannot locate the line \"Engine\" in the file GP38.eng and so it couldn't be added "
         "to the engines list.\r\n"},
        // A "Type (" anywhere behind the mass counts, the engine section's too.
        {"coupling word but no type",
         [](EngineParts& p) {
             p.couplings = "\tCoupling ( x )\n";
             p.type = "";
         },
         "Cannot locate the line \"Type (\" in the file GP38.eng(Rear coupler section) and so "
         "it couldn't be added to the engines list.\r\n"},
        {"no type in the engine section", [](EngineParts& p) { p.type = "\tKind ( Diesel )\n"; },
         "Cannot locate the line \"Type (\" in the file GP38.eng(Engine section) and so it "
         "couldn't be added to the engines list.\r\n"},
        {"many mid-line mass words",
         [](EngineParts& p) {
             p.mass = "";
             for (int i = 0; i < 60; ++i)
                 p.mass += "\tx Mass ( 1 )\n";
         },
         "The engine file GP38.eng contains an error on the line \"Mass (\" and so it couldn't "
         "be added to the engines list.\r\n"},
        {"many mid-line name words",
         [](EngineParts& p) {
             p.name = "";
             for (int i = 0; i < 60; ++i)
                 p.name += "\tx Name ( 1 )\n";
         },
         "The engine file GP38.eng contains an error on the line \"Name (\"\r\nand so it "
         "couldn't be added to the engines list.\r\n"},
    };
    for (const Case& c : cases) {
        EngineParts parts;
        c.change(parts);
        writeEngine("GP38", "GP38.eng", parts.text());
        (void)fake.fs.removeFile(msts.home() + "/Reports/StartErrors.txt");
        read();
        SCOPED_TRACE(c.what);
        EXPECT_EQ(startErrors().rfind(c.finding, 0), 0u) << startErrors();
        EXPECT_EQ(engine(0).displayName, "");
    }
}

TEST_F(ReadEngineFiles, FillsFromTheStartWithoutGapsAndOverwritesBeginnings) {
    const auto named = [](std::string name, bool valid) {
        EngineParts p;
        p.wagonLine = "Wagon ( " + name;
        if (!valid) p.type = "";  // refused after its record was begun
        p.name = "\tName ( " + name + " )\n";
        return p.text();
    };
    writeEngine("A", "ONE.eng", named("ONE", true));
    writeEngine("A", "TWO.eng", named("TWO", false));
    writeEngine("B", "THREE.eng", named("THREE", true));
    writeEngine("B", "ZFOUR.eng", named("ZFOUR", false));
    read();
    EXPECT_EQ(engine(0).displayName, "ONE");
    EXPECT_EQ(engine(1).displayName, "THREE");
    EXPECT_EQ(engine(1).folderName, "B");
    // The last refused file's beginnings stay, nameless, where the next engine would go.
    EXPECT_EQ(engine(2).fileName, "ZFOUR.eng");
    EXPECT_EQ(engine(2).displayName, "");
    EXPECT_EQ(engine(3).fileName, "");
}

TEST_F(ReadEngineFiles, SameCatalogueAndReportOnOneThreadOrMany) {
    for (int i = 0; i < 40; ++i) {
        EngineParts p;
        const std::string name = "E" + std::to_string(i);
        p.wagonLine = "Wagon ( " + (i % 7 == 3 ? "X" : name);
        if (i % 5 == 1) p.type = "\tType ( Magic )\n";
        if (i % 6 == 2) p.cab = "";
        writeEngine("F" + std::to_string(i % 4), name + ".eng", p.text());
    }
    read(1);
    const std::string serialReport = startErrors();
    const auto serial = std::make_unique<UnitCatalogue>(*catalogue);
    ASSERT_TRUE(fake.fs.removeFile(msts.home() + "/Reports/StartErrors.txt"));
    read(3);
    EXPECT_EQ(startErrors(), serialReport);
    for (std::size_t i = 0; i < 40; ++i) {
        EXPECT_EQ(engine(i).fileName, serial->engines[i].fileName) << i;
        EXPECT_EQ(engine(i).unitType, serial->engines[i].unitType) << i;
        EXPECT_EQ(engine(i).hasCab, serial->engines[i].hasCab) << i;
    }
}

TEST_F(ReadEngineFiles, ShowsProgressAndDebugPasses) {
    writeEngine("GP38", "GP38.eng", EngineParts().text());
    msts.write("TRAINS/TRAINSET/Empty/readme.txt", "");
    debugMode = true;
    read();
    EXPECT_EQ(fake.progress.labels,
              (std::vector<std::string>{"Loading engine files...", "Retrieving engine data..."}));
    EXPECT_EQ(fake.progress.maximums, (std::vector<int>{2, 1}));
    EXPECT_EQ(fake.progress.steps, 3);
    EXPECT_TRUE(fake.progress.debugVisible);
    const std::vector<std::string> expected = {
        "1:GP38.eng",
        "2:" + folder("GP38"),
        "3:Removing DESCRIPTION - Engines",
        "3:Removing COMMENTS - Engines",
        "3:Removing special coupling types - Engines",
        "3:WAGON line - Engines",
        "3:WAGONSHAPE line - Engines",
        "3:SIZE line - Engines",
        "3:MASS line - Engines",
        "3:TYPE line (Rear coupler) - Engines",
        "3:Defining limits (Front coupler) - Engines",
        "3:COUPLING line (Front coupler) - Engines",
        "3:TYPE line (Front coupler) - Engines",
        "3:ENGINE line - Engines",
        "3:TYPE line (Engine section)",
        "3:MAXPOWER line - Engines",
        "3:NAME line - Engines",
    };
    EXPECT_EQ(fake.progress.debugTexts, expected);
}

TEST_F(ReadEngineFiles, CancelAtTheEndDeletesTheReport) {
    msts.writeBytes("TRAINS/TRAINSET/B/EIGHTBIT.eng", "plain text");
    fake.dialogs.answers.push_back(Answer::Cancel);
    read();
    EXPECT_FALSE(msts.exists("home/Reports/StartErrors.txt"));
}

TEST_F(ReadEngineFiles, FilesTooLargeOrUnreadableAreFindingsOfTheirOwn) {
    writeEngine("A", "GP38.eng", EngineParts().text());
    const std::string huge = writeEngine("B", "Huge.eng", EngineParts().text());
    std::filesystem::resize_file(huge, kUnitFileSizeLimit + 1);  // sparse: no disk used
    writeEngine("C", "Locked.eng", EngineParts().text());
    fake.fs.unreadableNames = {"Locked.eng"};
    read();
    EXPECT_EQ(engine(0).fileName, "GP38.eng");
    EXPECT_EQ(catalogue->engineCount, 1u);
    EXPECT_EQ(startErrors(),
              "The file Huge.eng is larger than 16 MB, far more than a unit file holds, and so it "
              "wasn't read.\r\nFolder " +
                  folder("B") +
                  "\r\n\r\n"
                  "The file Locked.eng couldn't be read.\r\nFolder " +
                  folder("C") + "\r\n\r\n");
}

TEST_F(ReadEngineFiles, AReportThatCannotBeWrittenIsToldNotOffered) {
    msts.writeBytes("TRAINS/TRAINSET/B/EIGHTBIT.eng", "plain text");
    std::filesystem::create_directories(msts.home() + "/Reports/StartErrors.txt");  // unwritable
    read();
    ASSERT_EQ(fake.dialogs.shown.size(), 1u);
    EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Exclamation);
    EXPECT_THAT(fake.dialogs.shown[0].text, HasSubstr("They could not all be written to"));
    EXPECT_THAT(fake.dialogs.shown[0].text, Not(HasSubstr("Do you wish to save")));
}

TEST_F(ReadEngineFiles, OddInputEndsInAFindingNeverACrash) {
    const std::string header = "SIMISA@@@@@@@@@@JINX0D0t______";
    const std::string valid = EngineParts().text();
    std::string bigEndian = test::utf16Bytes("\xEF\xBB\xBF" + header + "\r\n" + valid);
    for (std::size_t i = 0; i + 1 < bigEndian.size(); i += 2)
        std::swap(bigEndian[i], bigEndian[i + 1]);
    std::string manyTypes = valid.substr(0, valid.find("\tCoupling"));
    manyTypes += "\tCoupling (\n";
    for (int i = 0; i < 10000; ++i)
        manyTypes += "\tx Type ( A )\n";
    std::string huge = valid.substr(0, valid.find("Engine ("));
    for (int i = 0; i < 60000; ++i)
        huge += "\tComment ( filler line " + std::to_string(i) + " )\n";
    huge += valid.substr(valid.find("Engine ("));
    const std::string full = "\xFF\xFE" + test::utf16Bytes(header + "\r\n" + valid);

    struct Case {
        const char* what;
        std::string bytes;
        const char* finding;  // "" when the engine is taken
    } cases[] = {
        {"empty", "", "The file GP38.eng isn't a Unicode file!"},
        {"8-bit", header + "\r\n" + valid, "The file GP38.eng isn't a Unicode file!"},
        {"big-endian", bigEndian, "Cannot locate the line \"Wagon (\""},
        {"truncated mid-character", full.substr(0, full.size() - 1), ""},
        {"all close parens",
         "\xFF\xFE" + test::utf16Bytes(header + "\r\n" + std::string(5000, ')')),
         "Cannot locate the line \"Wagon (\""},
        {"all open parens",
         "\xFF\xFE" + test::utf16Bytes(header + "\r\nWagon" + std::string(5000, '(')),
         "The engine file GP38.eng contains an error on the line \"Wagon (\"and"},
        {"ten thousand type words", "\xFF\xFE" + test::utf16Bytes(header + "\r\n" + manyTypes),
         "The engine file GP38.eng contains an error on the line \"Type (\" (Rear coupler)\r\n"
         " and so"},
        {"megabytes of comments", "\xFF\xFE" + test::utf16Bytes(header + "\r\n" + huge), ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        msts.writeBytes("TRAINS/TRAINSET/GP38/GP38.eng", c.bytes);
        (void)fake.fs.removeFile(msts.home() + "/Reports/StartErrors.txt");
        const auto started = std::chrono::steady_clock::now();
        read();
        EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(10));
        if (*c.finding == 0) {
            EXPECT_EQ(engine(0).displayName, "GP 38 Demo");
        } else {
            EXPECT_EQ(startErrors().rfind(c.finding, 0), 0u) << startErrors().substr(0, 300);
            EXPECT_EQ(engine(0).displayName, "");
        }
    }
}

TEST_F(ReadEngineFiles, WarnsAboveSixThousandAndStoresNoMoreThanTheArrayHolds) {
    const std::string bytes = [] {
        std::string text = "\xFF\xFE" + test::utf16Bytes("SIMISA@@@@@@@@@@JINX0D0t______\r\n");
        return text;
    }();
    EngineParts p;
    p.wagonLine = "Wagon ( E";
    const std::string tail = EngineParts().text().substr(std::string("Wagon ( GP38").size());
    for (int i = 0; i < 6003; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "E%05d", i);
        msts.writeBytes("TRAINS/TRAINSET/F" + std::to_string(10 + i / 500) + "/" + name + ".eng",
                        bytes + test::utf16Bytes("Wagon ( " + std::string(name) + tail));
    }
    read();
    ASSERT_FALSE(fake.dialogs.shown.empty());
    EXPECT_EQ(fake.dialogs.shown[0].text,
              "6003 engines have been found, but Rakeyard can only load 6000 engines!\n"
              "Not all of them have been loaded.");
    EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Stop);
    EXPECT_EQ(engine(6000).fileName, "E06000.eng");
    EXPECT_EQ(catalogue->engineCount, 6001u);
    EXPECT_EQ(usedRecords(*catalogue, UnitClass::Engine).back().fileName, "E06000.eng");
}

}  // namespace
}  // namespace rakeyard
