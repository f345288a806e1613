#include "platform/sharing/SaveToTarget.h"

#include <optional>

namespace pellumar {

void SaveToTarget::perform(const QList<QUrl>& urls, const Done& done) {
    const auto sheet = sheet_.lock();
    if (!sheet) {
        done({});
        return;
    }
    saving_ = ItemSaving::start(
        *sheet,
        context_,
        documents_,
        {.items = urls, .newFolder = {}},
        [done](const ItemSaving::Outcome& outcome) {
            const bool isSaved = !outcome.saved.isEmpty();
            done({.isCompleted = isSaved,
                  .error = outcome.failure,
                  .returnedItems = isSaved ? std::optional(outcome.saved) : std::nullopt});
        });
}

}  // namespace pellumar
