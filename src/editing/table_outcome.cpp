#include "editing/table_outcome.h"

#include "core/messages.h"

namespace partwright {

bool OutcomeBoxes::show(const TableOutcome& outcome) {
    for (const Box& box : outcome.boxes) {
        if (box.isTableFault && isFaultBoxOpen_)
            continue;
        const bool wasOpen = isFaultBoxOpen_;
        isFaultBoxOpen_ = isFaultBoxOpen_ || box.isTableFault;
        prompt_.tell(box.text, box.icon);
        isFaultBoxOpen_ = wasOpen;
    }
    return outcome.question && prompt_.ask(message::caption, *outcome.question);
}

} // namespace partwright
