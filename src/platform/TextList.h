#pragma once

#include <QStringList>
#include <functional>

namespace pellumar {

// A text of each item, by a member or by what it is given to.
template <typename Items, typename Text>
[[nodiscard]] QStringList textList(const Items& items, const Text& text) {
    QStringList texts;
    for (const auto& item : items) {
        texts.append(std::invoke(text, item));
    }
    return texts;
}

}  // namespace pellumar
