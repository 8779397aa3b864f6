#include "host/animation/priority_list.h"

#include <algorithm>

#include "host/scene/node.h"

bool HostPriorityList::Add(host::Node *node, std::int32_t priority, std::int32_t flags) {
    if (node == nullptr) return false;
    entries.push_back({node->Anchor(), priority, flags});
    return true;
}

void HostPriorityList::Sort() {
    const auto is_earlier = [](const Entry &a, const Entry &b) { return a.priority < b.priority; };
    // Nearly always few and in order already; a stable sort would fetch memory for every evaluation.
    if (std::is_sorted(entries.begin(), entries.end(), is_earlier)) return;
    for (std::size_t i = 1; i < entries.size(); ++i) {
        const auto place =
            std::upper_bound(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(i), entries[i], is_earlier);
        std::rotate(place, entries.begin() + static_cast<std::ptrdiff_t>(i),
                    entries.begin() + static_cast<std::ptrdiff_t>(i) + 1);
    }
}
