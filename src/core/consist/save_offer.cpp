#include "core/consist/save_offer.h"

#include "core/consist/consist_model.h"
#include "core/consist/consist_writer.h"

namespace rakeyard {

SaveOffer offerToSaveConsist(const ConsistContext& app, Services& services) {
    if (!app.consist.consistChanged) return SaveOffer::Unchanged;
    switch (services.dialogs.ask("Save changes to the consist?", Buttons::SaveDiscardCancel,
                                 Icon::Question, Answer::Cancel)) {
        case Answer::Yes:
        case Answer::Ok:
            return saveConsist(app, services) ? SaveOffer::Saved : SaveOffer::Failed;
        case Answer::Cancel:
            return SaveOffer::Cancelled;
        case Answer::No:
            break;
    }
    return SaveOffer::Declined;
}

bool clearConsist(const ConsistContext& app, Services& services) {
    const SaveOffer offer = offerToSaveConsist(app, services);
    if (offer == SaveOffer::Failed || offer == SaveOffer::Cancelled) return false;
    clearAll(app.consist);
    return true;
}

}  // namespace rakeyard
