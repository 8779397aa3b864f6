#include "presets/lucky.h"

#include <set>

#include "presets/shuffle.h"
#include "tag/state.h"

namespace {

// Moves those of the entries from `begin` on that are in `wanted` to the end of `list`, each once.
void Take(const std::vector<String> &entries, std::size_t begin, std::set<String> *wanted, std::vector<String> *list) {
    for (std::size_t i = begin; i < entries.size(); i++)
        if (wanted->erase(entries[i])) list->push_back(entries[i]);
}

}  // namespace

std::vector<String> IdsOf(const PresetLibrary &library) {
    std::vector<String> ids;
    for (const ShakingPreset &shaking : library.shaking) ids.push_back(shaking.id);
    return ids;
}

std::vector<String> ReadLuckyOrder(const BaseContainer &data) {
    std::vector<String> order;
    const BaseContainer stored = data.GetContainer(kLuckyOrder);
    for (LONG n = 0; stored.GetType(n) == DA_STRING; n++) order.push_back(stored.GetString(n));
    return order;
}

void WriteLuckyOrder(const std::vector<String> &order, BaseContainer *data) {
    BaseContainer stored;
    LONG n = 0;
    for (const String &id : order) stored.SetString(n++, id);
    data->SetContainer(kLuckyOrder, stored);
}

LONG NextInLuckyOrder(const std::vector<String> &present, LONG last, std::vector<String> *order) {
    const Bool is_place = last >= -1 && last < (LONG)order->size();
    std::vector<String> shown;
    if (is_place) shown.assign(order->begin(), order->begin() + (last + 1));

    std::set<String> unseen(present.begin(), present.end());
    for (const String &id : shown) unseen.erase(id);
    std::vector<String> waiting;
    Take(*order, shown.size(), &unseen, &waiting);
    const Bool has_new = !unseen.empty();
    Take(present, 0, &unseen, &waiting);

    const Bool is_new_round = waiting.empty();
    if (is_new_round) {
        std::set<String> all(present.begin(), present.end());
        Take(*order, 0, &all, &waiting);
        shown.clear();
    }
    if (is_new_round || has_new || !is_place) waiting = Shuffled(waiting);
    const LONG next = (LONG)shown.size();
    shown.insert(shown.end(), waiting.begin(), waiting.end());
    order->swap(shown);
    return next;
}
