// make_installation: writes a large synthetic MSTS installation for the benchmarks.
//
//   make_installation FOLDER [ENGINES [WAGONS [SEED]]]
//
// Defaults: 6000 engines, 8000 wagons, seed 1. The same arguments always give the same bytes.
// Units stand several to a folder under TRAINS/TRAINSET, with names in mixed letter case;
// engines are tens of kilobytes (long descriptions, comments, many light blocks), wagons a few.
// Every unit file is UTF-16 LE behind FF FE with CR LF line ends, as MSTS writes them; each
// folder also holds the shape and shape definition files a real one would.
//
// After the units, one route, ROUTES/Bench_Route: 100 activities with two loose consists each
// and 200 services, each naming a consist of its own under TRAINS/CONSISTS. One consist in ten
// is not there, and one unit in twenty a line names. The route takes its random numbers from a
// generator of its own, so the units are those the same arguments gave before it was added.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <fstream>
#include <string>
#include <vector>

namespace {

// A small generator of our own, so that the output does not depend on the library's
// distributions.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15ull + 1) {}
    std::uint64_t next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return state_;
    }
    int below(int limit) { return static_cast<int>(next() % static_cast<std::uint64_t>(limit)); }
    double between(double low, double high) {
        return low + (high - low) * static_cast<double>(next() % 1000000) / 1000000.0;
    }
    template <typename T>
    const T& pick(const std::vector<T>& items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }

private:
    std::uint64_t state_;
};

const std::vector<std::string> kWords = {
    "valley", "junction", "colliery", "express", "goods",   "heavy",  "branch", "line",
    "works",  "depot",    "shed",     "livery",  "green",   "maroon", "blue",   "rebuilt",
    "boiler", "tender",   "bogie",    "brake",   "vacuum",  "air",    "driver", "fireman",
    "summit", "gradient", "tunnel",   "viaduct", "harbour", "market", "yard",   "signal"};
const std::vector<std::string> kCouplings = {"Automatic", "Bar", "Chain", "Chain", "Automatic"};
const std::vector<std::string> kEngineTypes = {"Steam", "Diesel", "Electric", "diesel"};
const std::vector<std::string> kWagonTypes = {"Freight", "Carriage", "Tender", "freight"};

std::string mixedCase(const std::string& text, Random& random) {
    std::string mixed = text;
    for (char& c : mixed) {
        if (random.below(4) == 0)
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    return mixed;
}

std::string sentence(Random& random, int words) {
    std::string text;
    for (int i = 0; i < words; ++i)
        text += (i ? " " : "") + random.pick(kWords);
    text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return text + ".";
}

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

std::string couplingBlock(const std::string& type) {
    return "\tCoupling (\n\t\tType ( " + type +
           " )\n\t\tSpring (\n\t\t\tStiffness ( 1e6N/m 5e6N/m )\n"
           "\t\t\tDamping ( 1e6N/m/s 1e6N/m/s )\n\t\t\tBreak ( 1e7N 1e7N )\n"
           "\t\t\tr0 ( 0.2m 0.3m )\n\t\t)\n\t\tCouplingHasRigidConnection ( 0 )\n"
           "\t\tVelocity ( 0.1m/s )\n\t)\n";
}

std::string lightBlock(int index, Random& random) {
    return "\t\tLight (\n\t\t\tcomment( Light " + std::to_string(index) + ": " +
           sentence(random, 6) +
           " )\n\t\t\tType ( 0 )\n\t\t\tConditions ( Headlight ( 3 ) Unit ( 2 ) )\n"
           "\t\t\tCycle ( 0 )\n\t\t\tFadeIn ( 0.5 )\n\t\t\tFadeOut ( 0.5 )\n\t\t\tStates ( 1\n"
           "\t\t\t\tState (\n\t\t\t\t\tDuration ( 0.0 )\n\t\t\t\t\tLightColour ( ffffffee )\n"
           "\t\t\t\t\tPosition ( 0.0 3.6 " +
           number(random.between(-10, 10)) +
           " )\n\t\t\t\t\tAzimuth ( 0.0 0.0 0.0 )\n\t\t\t\t\tTransition ( 0 )\n"
           "\t\t\t\t\tRadius ( 0.2 )\n\t\t\t\t)\n\t\t\t)\n\t\t)\n";
}

// The part of a unit file that engines and wagons share: the Wagon section up to its end.
std::string wagonSection(const std::string& name, const std::string& type, Random& random,
                         int lights) {
    const std::string size = number(random.between(2.5, 3)) + "m " +
                             number(random.between(3.5, 4.2)) + "m " +
                             number(random.between(6, 24)) + "m";
    std::string text = "SIMISA@@@@@@@@@@JINX0D0t______\n\nWagon ( " + name + "\n";
    text += "\tcomment ( " + sentence(random, 12) + " )\n";
    text += "\tType ( " + type + " )\n\tWagonShape ( " + name + ".s )\n";
    text += "\tSize ( " + size + " )\n\tMass ( " + number(random.between(8, 130)) + "t )\n";
    text += "\tWheelRadius ( 0.5m )\n\tInertiaTensor ( Box ( " + size + " ) )\n";
    text += couplingBlock(random.pick(kCouplings));
    if (random.below(3) == 0) text += couplingBlock(random.pick(kCouplings));
    text +=
        "\tBuffers (\n\t\tSpring (\n\t\t\tStiffness ( 1e6N/m 5e6N/m )\n"
        "\t\t\tDamping ( 1e6N/m/s 1e6N/m/s )\n\t\t\tr0 ( 0m 1e9 )\n\t\t)\n"
        "\t\tCentre ( 0.5 )\n\t\tRadius ( 1 )\n\t\tAngle ( 0.5deg )\n\t)\n";
    text += "\tAdheasion ( 0.3 0.6 2 0 )\n\tNumWheels ( 4 )\n";
    text += "\tFriction (\n\t\t500N/m/s 0 1mph 0 1\n\t\t5.1N/m/s 0 1mph 0 1\n\t)\n";
    text += "\tBrakeEquipmentType ( \"Handbrake, Air_twin_pipe, Triple_valve\" )\n";
    text += "\tMaxBrakeForce ( " + number(random.between(20, 120)) + "kN )\n";
    if (lights > 0) {
        text += "\tLights ( " + std::to_string(lights) + "\n";
        for (int i = 0; i < lights; ++i)
            text += lightBlock(i, random);
        text += "\t)\n";
    }
    return text;
}

std::string engineText(const std::string& name, Random& random) {
    std::string text = wagonSection(name, "Engine", random, 8 + random.below(10));
    text += "\tSound ( \"" + name + "_eng.sms\" )\n)\n\nEngine ( " + name + "\n";
    text += "\tcomment ( " + sentence(random, 20) + " )\n";
    text += "\tType ( " + random.pick(kEngineTypes) + " )\n";
    text += "\tMaxPower ( " + std::to_string(300 + random.below(4000)) + "kW )\n";
    text += "\tMaxForce ( 250kN )\n\tMaxVelocity ( " + std::to_string(40 + random.below(80)) +
            "mph )\n";
    if (random.below(10) != 0) text += "\tCabView ( " + name + ".cvf )\n";
    text += "\tName ( \"" + sentence(random, 4) + "\" )\n";
    text += "\tDescription (\n";
    const int lines = 60 + random.below(120);
    for (int i = 0; i < lines; ++i)
        text += "\t\t\"" + sentence(random, 14) + " \"+\n";
    text += "\t\t\"\"\n\t)\n";
    text +=
        "\tEngineControllers (\n\t\tThrottle ( 0 1 0.05 0 )\n"
        "\t\tBrake_Train ( 0 1 0.05 0 )\n\t\tDirControl ( -1 0 1 1 )\n\t)\n)\n";
    return text;
}

std::string wagonText(const std::string& name, Random& random) {
    std::string text = wagonSection(name, random.pick(kWagonTypes), random, random.below(3));
    text += "\tName ( \"" + sentence(random, 4) + "\" )\n)\n";
    return text;
}

std::string msts(const std::string& text) {
    std::string bytes = "\xFF\xFE";
    bytes.reserve(text.size() * 2 + 64);
    for (char c : text) {
        if (c == '\n') bytes.append("\r\0", 2);
        bytes += c;
        bytes += '\0';
    }
    return bytes;
}

void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// The cab view and sound files an engine names, and the textures and .wav files they name in
// turn, as many lines as real ones have (a control's graphic or a sound's file line each, a few
// files shared by many lines). One in five points into another folder as an alias leaves them,
// so that the aliasing lists have files to look at. They take nothing from the random numbers,
// so the units are those of the same seed without them.
void writeCabAndSounds(const std::filesystem::path& folder, const std::string& name,
                       const std::string& text) {
    constexpr int kLines = 40, kShared = 5;
    const bool aliased = std::hash<std::string>{}(name) % 5 == 0;
    const std::string where = aliased ? "..\\\\..\\\\Common\\\\" : "";
    const std::filesystem::path common = folder.parent_path() / "Common";
    if (text.find("CabView ( ") != std::string::npos) {
        std::filesystem::create_directories(folder / "CABVIEW");
        const std::filesystem::path textures = aliased ? common : folder / "CABVIEW";
        std::filesystem::create_directories(textures);
        std::string cab = "SIMISA@@@@@@@@@@JINX0h0t______\n\nTr_CabViewFile (\n";
        for (const char* view : {"front", "left", "right"}) {
            cab += "\tCabViewFile ( " + where + name + "_" + view + ".ace )\n";
            writeFile(textures / (name + "_" + view + ".ace"), "ace");
        }
        cab += "\tCabViewControls ( " + std::to_string(kLines) + "\n";
        for (int i = 0; i < kLines; ++i)
            cab += "\t\tDial (\n\t\t\tGraphic ( " + where + name + "_dial" +
                   std::to_string(i % kShared + 1) + ".ace )\n\t\t)\n";
        for (int i = 0; i < kShared; ++i)
            writeFile(textures / (name + "_dial" + std::to_string(i + 1) + ".ace"), "ace");
        writeFile(folder / "CABVIEW" / (name + ".cvf"), msts(cab + "\t)\n)\n"));
    }
    std::filesystem::create_directories(folder / "SOUND");
    const std::filesystem::path sounds = aliased ? common : folder / "SOUND";
    std::filesystem::create_directories(sounds);
    std::string sms = "SIMISA@@@@@@@@@@JINX0x1t______\n\nTr_SMS (\n";
    for (int i = 0; i < kLines; ++i)
        sms += "\t\t\t\t\tInitial_Trigger ( StartLoopRelease ( 1 File ( \"" + where + name + "_" +
               std::to_string(i % kShared + 1) + ".wav\" -1 ) SelectionMethod ( "
               "SequentialSelection ) ) )\n";
    for (int i = 0; i < kShared; ++i)
        writeFile(sounds / (name + "_" + std::to_string(i + 1) + ".wav"), "wav");
    writeFile(folder / "SOUND" / (name + "_eng.sms"), msts(sms + ")\n"));
}

// Fills one folder with its units and the shape files beside them.
// A unit as a line of a consist names it: its file name without extension, and its folder.
struct UnitName {
    std::string name, folder;
};

void writeUnits(const std::filesystem::path& folder, const std::string& stem, int count,
                bool engines, Random& random, std::vector<UnitName>& written) {
    std::filesystem::create_directories(folder);
    for (int i = 0; i < count; ++i) {
        const std::string name = mixedCase(stem + "_" + std::to_string(i), random);
        const std::string extension =
            random.below(50) == 0 ? (engines ? ".ENG" : ".WAG") : (engines ? ".eng" : ".wag");
        const std::string text = engines ? engineText(name, random) : wagonText(name, random);
        writeFile(folder / (name + extension), msts(text));
        written.push_back({name, folder.filename().string()});
        if (engines) writeCabAndSounds(folder, name, text);
        writeFile(folder / (name + ".sd"),
                  msts("SIMISA@@@@@@@@@@JINX0t1t______\n\nshape ( " + name + ".s\n)\n"));
        writeFile(folder / (name + ".s"), std::string(512, '\x01'));
    }
}

// A unit line: mostly a unit that is there, one in twenty a name that is not.
std::string unitLine(const std::vector<UnitName>& units, bool engine, Random& random) {
    UnitName unit = units.empty() ? UnitName{"none", "none"} : random.pick(units);
    if (random.below(20) == 0) unit.name += "_gone";
    return std::string(engine ? "EngineData ( " : "WagonData ( ") + unit.name + " " +
           unit.folder + " )";
}

// The units of a train: one or two engines, then eight to fourteen wagons.
std::string trainUnits(const std::vector<UnitName>& engines, const std::vector<UnitName>& wagons,
                       const std::string& indent, Random& random) {
    std::string text;
    const int engineCount = 1 + random.below(2), count = engineCount + 8 + random.below(7);
    for (int i = 0; i < count; ++i) {
        const bool engine = i < engineCount;
        text += indent + (engine ? "Engine (\n" : "Wagon (\n") + indent + "\t" +
                unitLine(engine ? engines : wagons, engine, random) + "\n" + indent +
                "\tUiD ( " + std::to_string(i) + " )\n" + indent + ")\n";
    }
    return text;
}

std::string consistStem(int service) { return "Bench consist " + std::to_string(service); }

std::string serviceText(int service, Random& random) {
    const std::string stem = consistStem(service);
    return "SIMISA@@@@@@@@@@JINX0s0t______\n\nService_Definition (\n\tSerial ( 1 )\n"
           "\tName ( \"" + sentence(random, 4) + "\" )\n"
           "\tTrain_Config ( \"" + stem + "\" )\n\tPathID ( Bench_Path )\n"
           "\tMaxWheelAcceleration ( 0.5 )\n\tEfficiency ( 0.9 )\n\tTimeTable (\n"
           "\t\tStartTime ( 0 )\n\t\tPlatform ( 0 )\n\t)\n)\n";
}

std::string consistText(int service, const std::vector<UnitName>& engines,
                        const std::vector<UnitName>& wagons, Random& random) {
    const std::string stem = consistStem(service);
    return "SIMISA@@@@@@@@@@JINX0D0t______\n\nTrain (\n\tTrainCfg ( \"" + stem + "\"\n"
           "\t\tName ( \"" + stem + "\" )\n\t\tSerial ( 1 )\n"
           "\t\tMaxVelocity ( 40.0 0.5 )\n\t\tNextWagonUID ( 20 )\n"
           "\t\tDurability ( 1.00000 )\n" + trainUnits(engines, wagons, "\t\t", random) +
           "\t)\n)";
}

// An activity as the activity editor writes it: its header, the player's and the traffic's
// services, events, and its loose consists among the activity objects.
std::string activityText(int activity, int services, const std::vector<UnitName>& engines,
                         const std::vector<UnitName>& wagons, Random& random) {
    std::string text = "SIMISA@@@@@@@@@@JINX0a0t______\n\nTr_Activity (\n\tSerial ( 1 )\n"
                       "\tTr_Activity_Header (\n\t\tRouteID ( Bench_Route )\n"
                       "\t\tName ( \"Bench activity " + std::to_string(activity) + "\" )\n"
                       "\t\tDescription ( \"" + sentence(random, 30) + "\" )\n"
                       "\t\tBriefing ( \"" + sentence(random, 60) + "\" )\n"
                       "\t\tStartTime ( 8 0 0 )\n\t\tPathID ( Bench_Path )\n\t)\n"
                       "\tTr_Activity_File (\n\t\tPlayer_Service_Definition ( \"" +
                       consistStem(random.below(services)) + "\"\n\t\t\tUiD ( 0 )\n\t\t)\n"
                       "\t\tTraffic_Definition ( Bench_Traffic\n";
    for (int i = 0; i < 4; ++i)
        text += "\t\t\tService_Definition ( \"" + consistStem(random.below(services)) + "\" " +
                std::to_string(30000 + 300 * i) + "\n\t\t\t\tUiD ( " + std::to_string(i + 1) +
                " )\n\t\t\t)\n";
    text += "\t\t)\n\t\tEvents (\n";
    for (int i = 0; i < 20; ++i)
        text += "\t\t\tEventCategoryLocation (\n\t\t\t\tID ( " + std::to_string(i) +
                " )\n\t\t\t\tOutcomes (\n\t\t\t\t\tDisplayMessage ( \"" +
                sentence(random, 12) + "\" )\n\t\t\t\t)\n\t\t\t)\n";
    text += "\t\t)\n\t\tActivityObjects (\n";
    for (int i = 0; i < 2; ++i)
        text += "\t\t\tActivityObject (\n\t\t\t\tObjectType ( WagonsList )\n"
                "\t\t\t\tTrain_Config (\n\t\t\t\t\tTrainCfg ( \"\"\n"
                "\t\t\t\t\t\tName ( \"Loose consist.\" )\n\t\t\t\t\t\tSerial ( 1 )\n" +
                trainUnits(engines, wagons, "\t\t\t\t\t\t", random) +
                "\t\t\t\t\t)\n\t\t\t\t)\n\t\t\t\tID ( " + std::to_string(32768 + i) +
                " )\n\t\t\t)\n";
    return text + "\t\t)\n\t)\n)\n";
}

void writeRoute(const std::filesystem::path& root, const std::vector<UnitName>& engines,
                const std::vector<UnitName>& wagons, Random& random) {
    constexpr int kActivities = 100, kServices = 200;
    const std::filesystem::path route = root / "ROUTES" / "Bench_Route";
    std::filesystem::create_directories(route / "ACTIVITIES");
    std::filesystem::create_directories(route / "SERVICES");
    writeFile(route / "Bench_Route.trk",
              msts("SIMISA@@@@@@@@@@JINX0r1t______\n\nTr_RouteFile (\n\tRouteID ( Bench_Route )\n"
                   "\tName ( \"Bench Route\" )\n\tFileName ( Bench_Route )\n)\n"));
    for (int i = 0; i < kActivities; ++i)
        writeFile(route / "ACTIVITIES" / ("Bench_activity_" + std::to_string(i) + ".act"),
                  msts(activityText(i, kServices, engines, wagons, random)));
    for (int i = 0; i < kServices; ++i) {
        writeFile(route / "SERVICES" / (consistStem(i) + ".srv"), msts(serviceText(i, random)));
        if (random.below(10) != 0)
            writeFile(root / "TRAINS" / "CONSISTS" / (consistStem(i) + ".con"),
                      msts(consistText(i, engines, wagons, random)));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: make_installation FOLDER [ENGINES [WAGONS [SEED]]]\n", stderr);
        return 2;
    }
    const std::filesystem::path root = argv[1];
    const int engines = argc > 2 ? std::stoi(argv[2]) : 6000;
    const int wagons = argc > 3 ? std::stoi(argv[3]) : 8000;
    Random random(argc > 4 ? std::stoull(argv[4]) : 1);
    const std::filesystem::path trainset = root / "TRAINS" / "TRAINSET";
    std::filesystem::create_directories(root / "TRAINS" / "CONSISTS");
    std::filesystem::create_directories(root / "SOUND");

    std::vector<UnitName> engineNames, wagonNames;
    int folder = 0;
    for (int written = 0; written < engines; ++folder) {
        const int count = std::min(1 + random.below(4), engines - written);
        const std::string stem = mixedCase("loco" + std::to_string(folder), random);
        writeUnits(trainset / mixedCase("Bench_" + stem, random), stem, count, true, random,
                   engineNames);
        written += count;
    }
    for (int written = 0; written < wagons; ++folder) {
        const int count = std::min(2 + random.below(5), wagons - written);
        const std::string stem = mixedCase("stock" + std::to_string(folder), random);
        writeUnits(trainset / mixedCase("Bench_" + stem, random), stem, count, false, random,
                   wagonNames);
        written += count;
    }
    Random routeRandom(argc > 4 ? std::stoull(argv[4]) + 1000 : 1001);
    writeRoute(root, engineNames, wagonNames, routeRandom);
    std::printf("%s: %d engines, %d wagons in %d folders; route Bench_Route: 100 activities, "
                "200 services\n",
                root.string().c_str(), engines, wagons, folder);
    return 0;
}
