#include "EngineTest.h"

#include <algorithm>

namespace pellumar::test {

std::vector<StoredEvent> storedEvents(const std::filesystem::path& folder) {
    const std::unique_ptr<AnalyticsStore> store = AnalyticsStore::open(folder);
    return store ? store->events().oldest(100'000, 100 << 20) : std::vector<StoredEvent>();
}

QStringList namesOf(const std::vector<StoredEvent>& events) {
    QStringList names;
    for (const StoredEvent& event : events) {
        names.append(event.event.name);
    }
    return names;
}

QStringList ownNames(const std::filesystem::path& folder) {
    QStringList names = namesOf(storedEvents(folder));
    names.removeIf([](const QString& name) { return name.startsWith("pz_"); });
    return names;
}

ParameterValue parameterOf(const StoredEvent& event, const QString& name) {
    const auto& all = event.event.parameters;
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.name == name; });
    return found == all.end() ? ParameterValue(QString()) : found->value;
}

}  // namespace pellumar::test
