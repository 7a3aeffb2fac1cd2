// Takes the bytes as an activity of a route, lists it, opens it in the loose consist editor and
// replaces units in it (one by one, all occurrences, then Cancel) from a small catalogue. No
// crash or hang, nothing touched outside the installation and the program's folder, and after
// each replace the activity is either as it was or differs from it inside one line; Cancel
// gives the opening bytes back.
#include <cstdint>
#include <memory>
#include <string>

#include "core/app/app_state.h"
#include "core/msts/loose_replace.h"
#include "memory_tree.h"

namespace {

using namespace rakeyard;

// Whether after equals before but for the text of one line: the part that differs holds no
// line end in either.
bool changedInsideOneLine(const std::string& before, const std::string& after) {
    if (before == after) return true;
    const ActivityText a = decodeActivity(before), b = decodeActivity(after);
    if (a.oddByte != b.oddByte) return false;
    std::size_t prefix = 0;
    while (prefix < a.text.size() && prefix < b.text.size() && a.text[prefix] == b.text[prefix])
        ++prefix;
    std::size_t suffix = 0;
    while (suffix + prefix < a.text.size() && suffix + prefix < b.text.size() &&
           a.text[a.text.size() - 1 - suffix] == b.text[b.text.size() - 1 - suffix])
        ++suffix;
    const auto noLineEnd = [](std::u16string_view middle) {
        return middle.find(u'\r') == std::u16string_view::npos;
    };
    return noLineEnd(std::u16string_view(a.text).substr(prefix, a.text.size() - prefix - suffix)) &&
           noLineEnd(std::u16string_view(b.text).substr(prefix, b.text.size() - prefix - suffix));
}

void addUnit(UnitCatalogue& catalogue, const char* file, const char* folder, float length) {
    const bool engine = std::string(file).ends_with(".eng");
    UnitRecord& record = engine ? catalogue.engines[catalogue.engineCount++]
                                : catalogue.wagons[catalogue.wagonCount++];
    record.fileName = file;
    record.folderName = folder;
    record.folderPath = std::string("/msts/TRAINS/TRAINSET/") + folder;
    record.length = length;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto state = [] {
        auto made = std::make_unique<AppState>();
        made->paths.mstsPath = "/msts";
        made->paths.programFolder = "/home";
        addUnit(made->catalogue, "E.eng", "Locos", 12.4f);
        addUnit(made->catalogue, "W.wag", "Stock", 12.6f);
        addUnit(made->catalogue, "W W.wag", "Box Vans", 13.5f);
        return made;
    }();
    for (RouteEntry& entry : state->routes.routes)
        entry = {};
    fuzz::QuietServices quiet;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::string act = "/msts/Routes/R/ACTIVITIES/a.act";
    // Route files are looked up upper-cased, and the memory tree minds the case.
    quiet.tree.files["/msts/Routes/R/R.TRK"] = "Name ( R )\r\n";
    quiet.tree.files[act] = bytes;
    LooseEditor editor;
    LooseContext context{state->paths, state->routes, state->catalogue, state->looseUnits,
                         quiet.services};
    readRoutes(context, editor);
    SearchActsForLoose(context, editor, "R");
    if (!openLooseActivity(context, editor, "a.act --> x")) return 0;

    std::size_t replaces = 0;
    for (std::size_t node = 1; node < editor.nodes.size() && replaces < 16; ++node) {
        if (editor.nodes[node].parent == 0) continue;
        ++replaces;
        const bool engine = editor.nodes[node].key.front() == 'E';
        const std::string before = quiet.tree.files[act];
        selectLooseNode(context, editor, node);
        const bool written = replaceLooseUnit(context, editor, engine ? "E.eng" : "W W.wag",
                                              engine ? UnitClass::Engine : UnitClass::Wagon);
        const std::string& after = quiet.tree.files[act];
        if (!changedInsideOneLine(before, after)) __builtin_trap();
        if (written && quiet.tree.files[act + ".bak"] != before) __builtin_trap();
    }
    if (editor.nodes.size() > 2) {
        selectLooseNode(context, editor, editor.nodes.size() - 1);
        (void)replaceAllOccurrences(context, editor, "W.wag", UnitClass::Wagon);
    }
    if (restoreOpenedActivity(context, editor) && quiet.tree.files[act] != bytes) __builtin_trap();
    if (!quiet.tree.touchedOnlyBelow({"/msts", "/home"})) __builtin_trap();
    return 0;
}
