// tools bigones: the record holders of the catalogue, as the big ones window shows them.
#include <cstdio>
#include <string>

#include "cli/commands.h"
#include "core/tools/big_ones.h"

namespace rakeyard::cli {

int runToolsBigOnes(CliContext& context, CommandArguments& arguments) {
    const std::vector<std::string> operands = arguments.operands();
    if (!arguments.error().empty()) return usageError(context, arguments.error());
    if (!operands.empty()) return usageError(context, "unexpected " + operands.front());
    if (int status = context.startUp(); status != kExitDone) return status;
    const auto bigOnes = findBigOnes(context.state->catalogue);
    context.endProgress();
    if (context.options.json) {
        Json rows = Json::array();
        for (const BigOne& holder : bigOnes)
            rows.push_back(
                Json{{"heading", holder.heading}, {"name", holder.name}, {"value", holder.value}});
        printJson(rows);
        return kExitDone;
    }
    for (const BigOne& holder : bigOnes) {
        std::string heading(holder.heading);
        heading.resize(17, ' ');
        std::printf("%s%s  %s\n", heading.c_str(), holder.name.c_str(), holder.value.c_str());
    }
    return kExitDone;
}

}  // namespace rakeyard::cli
