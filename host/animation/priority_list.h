// When the expressions of one evaluation run.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "host/value/link.h"

struct HostPriorityList {
    struct Entry {
        std::shared_ptr<host::NodeAnchor> node;  // expressions may destroy each other
        std::int32_t priority, flags;
    };
    std::vector<Entry> entries;

    bool Add(host::Node *node, std::int32_t priority, std::int32_t flags);
    // By priority; equal ones stay in the order in which they were added.
    void Sort();
};
