#pragma once
// Replacing units of the open activity's loose consists: the one place the program rewrites an
// .act. Each replace changes the unit's line and nothing else, after an exact copy of the
// activity as it stood went to its ".bak"; whatever fails, the activity stays whole.
#include <string>

#include "core/msts/loose_editor.h"

namespace rakeyard {

// The message of a replace that failed, with why.
[[nodiscard]] std::string replaceFailedText(const std::string& cause);

// The selected node's unit replaced by the unit of file name newFile from the list in view
// (engines or wagons): the lengths from the last matching catalogue entries, the length warning
// and lblLenght, then the node, its row, its picture box and the activity's line. Refused with
// a message before anything changes: a unit of the other kind, a unit without a row, a unit
// line holding a lone LF, a new unit the catalogue lacks. True when the activity was written.
bool replaceLooseUnit(LooseContext& context, LooseEditor& editor, const std::string& newFile,
                      UnitClass listKind);

// Every node whose text is the selected node's, as they stand now, replaced as one press each
// would, with the activity written once (its ".bak" the activity before them all).
bool replaceAllOccurrences(LooseContext& context, LooseEditor& editor, const std::string& newFile,
                           UnitClass listKind);

// Cancel: the activity written back from the copy made when it was opened, opened again, the
// consist shown last shown again and the first node selected. The ".bak" stays. False when
// nothing was restored (told when the copy is missing or the write failed).
bool restoreOpenedActivity(LooseContext& context, LooseEditor& editor);

}  // namespace rakeyard
